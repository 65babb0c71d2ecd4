// The compile of a Blueprint into its generated class: properties from the variables, functions from the
// graphs, components, interfaces, and the checks of every graph.
#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UBlueprint;
class UBlueprintGeneratedClass;
class UEdGraph;
class FCompilerResultsLog;
class FProperty;
class UFunction;
class UStruct;

namespace UnrealEd::Private
{
	class FBlueprintCompiler
	{
	public:
		FBlueprintCompiler(UBlueprint& InBlueprint, FCompilerResultsLog& InLog);
		// Makes the new class (installed on the Blueprint) and sets the Blueprint's status.
		void Compile();

		// A property of the pin type, owned by Owner; null for a type without one (exec, wildcard, none).
		static FProperty* CreatePropertyFromPinType(UStruct* Owner, FName Name, const FEdGraphPinType& Type, EPropertyFlags Flags, UClass* SelfClass);

	private:
		bool CheckParentAndVariables();
		UBlueprintGeneratedClass* MakeClass();
		void AddVariables(UBlueprintGeneratedClass* Class);
		void AddFunctions(UBlueprintGeneratedClass* Class);
		UFunction* AddFunction(UBlueprintGeneratedClass* Class, FName Name, const UFunction* Signature, EFunctionFlags Flags, const TArray<const UEdGraphPin*>& Inputs, const TArray<const UEdGraphPin*>& Outputs);
		void AddInterfaces(UBlueprintGeneratedClass* Class);
		void SetDefaults(UBlueprintGeneratedClass* Class, UClass* OldClass);
		void CheckGraphs();
		void CheckGraph(const UEdGraph* Graph);
		void RetireOldClass(UClass* OldClass);
		void RecompileChildren(UClass* OldClass, UClass* NewClass);

		UBlueprint& Blueprint;
		FCompilerResultsLog& Log;
	};
}
