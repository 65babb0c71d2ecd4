#include "Agent/BlueprintUtils.h"

#include "Components/ActorComponent.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "GameFramework/Actor.h"
#include "TavrineSettings.h"
#include "Templates/Casts.h"
#include "UObject/Class.h"
#include "UObject/Interface.h"
#include "UObject/UnrealType.h"

namespace
{
	const TCHAR* const SectionKeys[] = { TEXT("Variables"), TEXT("Functions"), TEXT("Components"), TEXT("Interfaces"), TEXT("Graphs") };

	constexpr uint64 VisiblePropertyFlags = CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly;
	constexpr uint32 VisibleFunctionFlags = FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_BlueprintPure;

	/** Whether the content filter of the settings shows a field with these flags, declared by OwnerClass. */
	bool PassesContentFilter(ETavrineBlueprintContentFilter Filter, bool bBlueprintVisible, const UClass* OwnerClass)
	{
		switch (Filter)
		{
		case ETavrineBlueprintContentFilter::UseAllContent:
			return true;
		case ETavrineBlueprintContentFilter::UseOnlyBlueprintVisibleContent:
			return bBlueprintVisible;
		case ETavrineBlueprintContentFilter::UseOnlyBlueprintClassContent:
			return bBlueprintVisible && OwnerClass != nullptr && OwnerClass->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
		default:
			return false;
		}
	}

	ETavrineBlueprintContentFilter GetContentFilter()
	{
		return GetDefault<UTavrineSettings>()->BlueprintContentFilter;
	}

	TSharedPtr<FJsonObject> MakeError(const FString& Message)
	{
		TSharedPtr<FJsonObject> Error = MakeShared<FJsonObject>();
		Error->SetStringField(TEXT("Error"), Message);
		return Error;
	}
}

FString FTavrineBlueprintUtils::ReadBlueprint(const FString& BlueprintName, const FString& DataSubset)
{
	const UBlueprint* Blueprint = GetBlueprintFromtBlueprintName(BlueprintName);
	if (Blueprint == nullptr)
	{
		return SerializeJson(MakeError(FString::Printf(TEXT("Blueprint '%s' not found."), *BlueprintName)));
	}
	const UClass* GeneratedClass = Blueprint->GeneratedClass;
	if (GeneratedClass == nullptr || !GeneratedClass->IsA<UBlueprintGeneratedClass>())
	{
		return SerializeJson(MakeError(FString::Printf(TEXT("Loaded asset is not a Blueprint: %s"), *BlueprintName)));
	}

	const TSharedPtr<FJsonObject> Document = BuildBlueprintDocument(Blueprint, GeneratedClass);

	TArray<FString> WantedKeys = { TEXT("Name"), TEXT("Path"), TEXT("ParentClass") };
	if (DataSubset.Equals(TEXT("All"), ESearchCase::IgnoreCase))
	{
		for (const TCHAR* SectionKey : SectionKeys)
		{
			WantedKeys.Add(SectionKey);
		}
	}
	else
	{
		WantedKeys.Add(DataSubset);
	}

	// Keys are matched in any case and written as asked: "variables" gives "variables".
	TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();
	for (const FString& WantedKey : WantedKeys)
	{
		for (const TPair<FString, TSharedPtr<FJsonValue>>& Field : Document->Values)
		{
			if (Field.Key.Equals(WantedKey, ESearchCase::IgnoreCase))
			{
				Result->SetField(WantedKey, Field.Value);
				break;
			}
		}
	}
	return SerializeJson(Result);
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::BuildBlueprintDocument(const UBlueprint* Blueprint, const UClass* GeneratedClass)
{
	TSharedPtr<FJsonObject> Document = MakeShared<FJsonObject>();
	Document->SetStringField(TEXT("Name"), Blueprint->GetName());
	Document->SetStringField(TEXT("Path"), Blueprint->GetPathName());
	const UClass* SuperClass = GeneratedClass->GetSuperClass();
	Document->SetStringField(TEXT("ParentClass"), SuperClass != nullptr ? SuperClass->GetName() : FString());

	// Variables and graphs stand even when empty; the other sections only when they have something.
	Document->SetObjectField(TEXT("Variables"), ReadVariables(GeneratedClass));
	const TArray<TSharedPtr<FJsonValue>> Functions = ReadFunctions(Blueprint, GeneratedClass);
	if (!Functions.IsEmpty())
	{
		Document->SetArrayField(TEXT("Functions"), Functions);
	}
	const TArray<TSharedPtr<FJsonValue>> Components = ReadComponents(GeneratedClass);
	if (!Components.IsEmpty())
	{
		Document->SetArrayField(TEXT("Components"), Components);
	}
	const TArray<TSharedPtr<FJsonValue>> Interfaces = ReadInterfaces(Blueprint);
	if (!Interfaces.IsEmpty())
	{
		Document->SetArrayField(TEXT("Interfaces"), Interfaces);
	}
	Document->SetArrayField(TEXT("Graphs"), ReadGraphs(Blueprint->UbergraphPages));
	return Document;
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ReadVariables(const UClass* GeneratedClass)
{
	return ReadShownProperties(GeneratedClass, GeneratedClass->GetDefaultObject());
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ReadShownProperties(const UStruct* Struct, const void* Container)
{
	const ETavrineBlueprintContentFilter Filter = GetContentFilter();
	TSharedPtr<FJsonObject> Properties = MakeShared<FJsonObject>();
	for (TFieldIterator<FProperty> It(Struct, EFieldIteratorFlags::IncludeSuper, EFieldIteratorFlags::IncludeDeprecated); It; ++It)
	{
		const FProperty* Property = *It;
		if (!PassesContentFilter(Filter, Property->HasAnyPropertyFlags(VisiblePropertyFlags), Property->GetOwnerClass()))
		{
			continue;
		}
		TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetObjectField(TEXT("Type"), GetVarJSonObjectFromProperty(Property));
		Entry->SetStringField(TEXT("Value"), GetPropertyValueAsString(Container, Property));
		Properties->SetObjectField(Property->GetName(), Entry);
	}
	return Properties;
}

TArray<TSharedPtr<FJsonValue>> FTavrineBlueprintUtils::ReadFunctions(const UBlueprint* Blueprint, const UClass* GeneratedClass)
{
	const ETavrineBlueprintContentFilter Filter = GetContentFilter();

	TArray<TSharedPtr<FJsonValue>> Functions;
	for (TFieldIterator<UFunction> It(GeneratedClass, EFieldIteratorFlags::IncludeSuper, EFieldIteratorFlags::IncludeDeprecated); It; ++It)
	{
		const UFunction* Function = *It;
		if (!PassesContentFilter(Filter, Function->HasAnyFunctionFlags(static_cast<EFunctionFlags>(VisibleFunctionFlags)), Function->GetOwnerClass()))
		{
			continue;
		}

		TSharedPtr<FJsonObject> FunctionJson = MakeShared<FJsonObject>();
		FunctionJson->SetStringField(TEXT("Name"), Function->GetName());

		const FProperty* ReturnProperty = Function->GetReturnProperty();
		if (ReturnProperty != nullptr)
		{
			TSharedPtr<FJsonObject> ReturnType = MakeShared<FJsonObject>();
			ReturnType->SetStringField(TEXT("Name"), TEXT("ReturnValue"));
			ReturnType->SetObjectField(TEXT("Type"), GetVarJSonObjectFromProperty(ReturnProperty));
			FunctionJson->SetObjectField(TEXT("ReturnType"), ReturnType);
		}
		else
		{
			FunctionJson->SetStringField(TEXT("ReturnType"), TEXT("void"));
		}

		// Every other field of the function is a parameter here, locals included; out parameters by their flag.
		TArray<TSharedPtr<FJsonValue>> InParams;
		TArray<TSharedPtr<FJsonValue>> OutParams;
		for (TFieldIterator<FProperty> ParamIt(Function, EFieldIteratorFlags::ExcludeSuper); ParamIt; ++ParamIt)
		{
			const FProperty* Param = *ParamIt;
			if (Param == ReturnProperty)
			{
				continue;
			}
			TSharedPtr<FJsonObject> ParamJson = MakeShared<FJsonObject>();
			ParamJson->SetStringField(TEXT("Name"), Param->GetName());
			ParamJson->SetObjectField(TEXT("Type"), GetVarJSonObjectFromProperty(Param));
			(Param->HasAnyPropertyFlags(CPF_OutParm) ? OutParams : InParams).Add(MakeShared<FJsonValueObject>(ParamJson));
		}
		if (!InParams.IsEmpty())
		{
			FunctionJson->SetArrayField(TEXT("InParams"), InParams);
		}
		if (!OutParams.IsEmpty())
		{
			FunctionJson->SetArrayField(TEXT("OutParams"), OutParams);
		}

		// Inherited functions have no graph in this Blueprint.
		const FString FunctionName = Function->GetName();
		for (const UEdGraph* Graph : Blueprint->FunctionGraphs)
		{
			if (Graph != nullptr && Graph->GetName().Equals(FunctionName, ESearchCase::IgnoreCase))
			{
				FunctionJson->SetObjectField(TEXT("EdGraph"), ReadEdGraph(Graph));
				break;
			}
		}
		Functions.Add(MakeShared<FJsonValueObject>(FunctionJson));
	}
	return Functions;
}

TArray<TSharedPtr<FJsonValue>> FTavrineBlueprintUtils::ReadComponents(const UClass* GeneratedClass)
{
	// Only what the default object holds: construction script components are made on spawning.
	TArray<TSharedPtr<FJsonValue>> Components;
	if (!GeneratedClass->IsChildOf(AActor::StaticClass()))
	{
		return Components;
	}
	const AActor* DefaultActor = Cast<AActor>(GeneratedClass->GetDefaultObject());
	if (DefaultActor == nullptr)
	{
		return Components;
	}
	TArray<UActorComponent*> ActorComponents;
	DefaultActor->GetComponents(ActorComponents, false);
	for (const UActorComponent* Component : ActorComponents)
	{
		if (Component == nullptr)
		{
			continue;
		}
		TSharedPtr<FJsonObject> ComponentJson = MakeShared<FJsonObject>();
		ComponentJson->SetStringField(TEXT("Name"), Component->GetName());
		ComponentJson->SetStringField(TEXT("ClassName"), Component->GetClass()->GetName());
		Components.Add(MakeShared<FJsonValueObject>(ComponentJson));
	}
	return Components;
}

TArray<TSharedPtr<FJsonValue>> FTavrineBlueprintUtils::ReadInterfaces(const UBlueprint* Blueprint)
{
	TArray<TSharedPtr<FJsonValue>> Interfaces;
	for (const FBPInterfaceDescription& Description : Blueprint->ImplementedInterfaces)
	{
		const UClass* InterfaceClass = Description.Interface;
		if (InterfaceClass == nullptr || !InterfaceClass->IsChildOf(UInterface::StaticClass()))
		{
			continue;
		}
		TSharedPtr<FJsonObject> InterfaceJson = MakeShared<FJsonObject>();
		InterfaceJson->SetStringField(TEXT("Name"), InterfaceClass->GetName());
		InterfaceJson->SetArrayField(TEXT("Graphs"), ReadGraphs(Description.Graphs));
		Interfaces.Add(MakeShared<FJsonValueObject>(InterfaceJson));
	}
	return Interfaces;
}

TArray<TSharedPtr<FJsonValue>> FTavrineBlueprintUtils::ReadGraphs(const TArray<TObjectPtr<UEdGraph>>& Graphs)
{
	TArray<TSharedPtr<FJsonValue>> GraphValues;
	GraphValues.Reserve(Graphs.Num());
	for (const UEdGraph* Graph : Graphs)
	{
		if (Graph != nullptr)
		{
			GraphValues.Add(MakeShared<FJsonValueObject>(ReadEdGraph(Graph)));
		}
	}
	return GraphValues;
}
