#include "BlueprintCompiler.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Animation/AnimBlueprint.h"
#include "Animation/AnimBlueprintGeneratedClass.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Event.h"
#include "K2Node_CustomEvent.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "UObject/TextProperty.h"
#include "UObject/Interface.h"
#include "UObject/UObjectIterator.h"
#include "UObject/Package.h"

DEFINE_LOG_CATEGORY_STATIC(LogBlueprint, Log, All);

namespace UnrealEd::Private
{
	namespace
	{
		FProperty* CreateTerminalProperty(FFieldVariant Owner, FName Name, FName Category, FName SubCategory, UObject* Object, bool bWeak, UClass* SelfClass)
		{
			if (SubCategory == UEdGraphSchema_K2::PSC_Self)
			{
				Object = SelfClass;
			}
			UClass* Class = Cast<UClass>(Object);
			if (Category == UEdGraphSchema_K2::PC_Boolean)
			{
				return new FBoolProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Byte)
			{
				FByteProperty* Byte = new FByteProperty(Owner, Name, RF_Public);
				Byte->Enum = Cast<UEnum>(Object);
				return Byte;
			}
			if (Category == UEdGraphSchema_K2::PC_Int)
			{
				return new FIntProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Int64)
			{
				return new FInt64Property(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Real || Category == UEdGraphSchema_K2::PC_Float || Category == UEdGraphSchema_K2::PC_Double)
			{
				// Blueprint reals are doubles unless asked for single precision.
				if (SubCategory == UEdGraphSchema_K2::PC_Float || Category == UEdGraphSchema_K2::PC_Float)
				{
					return new FFloatProperty(Owner, Name, RF_Public);
				}
				return new FDoubleProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Name)
			{
				return new FNameProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_String)
			{
				return new FStrProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Text)
			{
				return new FTextProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Struct)
			{
				UScriptStruct* Struct = Cast<UScriptStruct>(Object);
				return Struct != nullptr ? new FStructProperty(Owner, Name, RF_Public, 0, CPF_None, Struct) : nullptr;
			}
			if (Category == UEdGraphSchema_K2::PC_Object)
			{
				if (Class == nullptr)
				{
					return nullptr;
				}
				if (bWeak)
				{
					return new FWeakObjectProperty(Owner, Name, RF_Public, 0, CPF_None, Class);
				}
				return new FObjectProperty(Owner, Name, RF_Public, 0, CPF_None, Class);
			}
			if (Category == UEdGraphSchema_K2::PC_Class)
			{
				return Class != nullptr ? new FClassProperty(Owner, Name, RF_Public, 0, CPF_None, Class) : nullptr;
			}
			if (Category == UEdGraphSchema_K2::PC_SoftObject)
			{
				return Class != nullptr ? new FSoftObjectProperty(Owner, Name, RF_Public, 0, CPF_None, Class) : nullptr;
			}
			if (Category == UEdGraphSchema_K2::PC_SoftClass)
			{
				return Class != nullptr ? new FSoftClassProperty(Owner, Name, RF_Public, 0, CPF_None, Class) : nullptr;
			}
			if (Category == UEdGraphSchema_K2::PC_Interface)
			{
				return Class != nullptr ? new FInterfaceProperty(Owner, Name, RF_Public, 0, CPF_None, Class) : nullptr;
			}
			if (Category == UEdGraphSchema_K2::PC_MCDelegate)
			{
				return new FMulticastInlineDelegateProperty(Owner, Name, RF_Public);
			}
			if (Category == UEdGraphSchema_K2::PC_Delegate)
			{
				return new FDelegateProperty(Owner, Name, RF_Public);
			}
			return nullptr;
		}

		bool IsOutputParameterPin(const UEdGraphPin* Pin)
		{
			return Pin->PinType.PinCategory != UEdGraphSchema_K2::PC_Exec;
		}

		int32 RetiredClassCount = 0;
	}

	/** An array or set of the pin type's terminal type; null, and the container gone, when that type can't be made. */
	template <typename ContainerPropertyType>
	FProperty* CreateSingleElementContainer(ContainerPropertyType* Container, FName Name, const FEdGraphPinType& Type, UClass* SelfClass)
	{
		FProperty* Element = CreateTerminalProperty(Container, Name, Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(), Type.bIsWeakPointer, SelfClass);
		if (Element == nullptr)
		{
			delete Container;
			return nullptr;
		}
		Container->AddCppProperty(Element);
		return Container;
	}

	FProperty* FBlueprintCompiler::CreatePropertyFromPinType(UStruct* Owner, FName Name, const FEdGraphPinType& Type, EPropertyFlags Flags, UClass* SelfClass)
	{
		FProperty* Result = nullptr;
		switch (Type.ContainerType)
		{
		case EPinContainerType::Array:
			Result = CreateSingleElementContainer(new FArrayProperty(Owner, Name, RF_Public), Name, Type, SelfClass);
			break;
		case EPinContainerType::Set:
			Result = CreateSingleElementContainer(new FSetProperty(Owner, Name, RF_Public), Name, Type, SelfClass);
			break;
		case EPinContainerType::Map:
		{
			FMapProperty* Map = new FMapProperty(Owner, Name, RF_Public);
			FProperty* Key = CreateTerminalProperty(Map, FName(*(Name.ToString() + TEXT("_Key"))), Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(), Type.bIsWeakPointer, SelfClass);
			const FEdGraphTerminalType& ValueType = Type.PinValueType;
			FProperty* Value = CreateTerminalProperty(Map, Name, ValueType.TerminalCategory, ValueType.TerminalSubCategory, ValueType.TerminalSubCategoryObject.Get(), ValueType.bTerminalIsWeakPointer, SelfClass);
			if (Key == nullptr || Value == nullptr)
			{
				delete Key;
				delete Value;
				delete Map;
				return nullptr;
			}
			Map->AddCppProperty(Key);
			Map->AddCppProperty(Value);
			Result = Map;
			break;
		}
		default:
			Result = CreateTerminalProperty(Owner, Name, Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get(), Type.bIsWeakPointer, SelfClass);
			break;
		}
		if (Result != nullptr)
		{
			Result->PropertyFlags |= Flags;
		}
		return Result;
	}

	FBlueprintCompiler::FBlueprintCompiler(UBlueprint& InBlueprint, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Log(InLog)
	{
	}

	void FBlueprintCompiler::Compile()
	{
		const int32 ErrorsBefore = Log.NumErrors;
		const int32 WarningsBefore = Log.NumWarnings;
		const int32 MessagesBefore = Log.Messages.Num();
		if (CheckParentAndVariables())
		{
			UClass* OldClass = Blueprint.GeneratedClass;
			UBlueprintGeneratedClass* NewClass = MakeClass();
			AddFunctions(NewClass);
			AddVariables(NewClass);
			AddInterfaces(NewClass);
			NewClass->StaticLink(true);
			SetDefaults(NewClass, OldClass);
			Blueprint.GeneratedClass = NewClass;
			Blueprint.SkeletonGeneratedClass = NewClass;
			CheckGraphs();
			if (OldClass != nullptr && OldClass != NewClass)
			{
				RecompileChildren(OldClass, NewClass);
			}
		}
		for (int32 Index = MessagesBefore; Index < Log.Messages.Num(); ++Index)
		{
			const FTokenizedMessage& Message = *Log.Messages[Index];
			if (Message.GetSeverity() == EMessageSeverity::Error)
			{
				UE_LOG(LogBlueprint, Error, TEXT("[Compiler %s] %s"), *Blueprint.GetName(), *Message.ToText().ToString());
			}
			else if (Message.GetSeverity() == EMessageSeverity::Warning)
			{
				UE_LOG(LogBlueprint, Warning, TEXT("[Compiler %s] %s"), *Blueprint.GetName(), *Message.ToText().ToString());
			}
		}
		Blueprint.Status = Log.NumErrors > ErrorsBefore ? BS_Error : Log.NumWarnings > WarningsBefore ? BS_UpToDateWithWarnings : BS_UpToDate;
	}

	bool FBlueprintCompiler::CheckParentAndVariables()
	{
		UClass* Parent = Blueprint.ParentClass;
		if (Parent == nullptr)
		{
			Log.Error(*FString::Printf(TEXT("Blueprint %s has no parent class: it may have been deleted or renamed"), *Blueprint.GetName()));
			return false;
		}
		for (const UClass* Class = Parent; Class != nullptr; Class = Class->GetSuperClass())
		{
			if (Class->ClassGeneratedBy == &Blueprint)
			{
				Log.Error(*FString::Printf(TEXT("Blueprint %s can't derive from its own class"), *Blueprint.GetName()));
				return false;
			}
		}
		bool bValid = true;
		TSet<FName> Names;
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			bool bAlreadyThere = false;
			Names.Add(Variable.VarName, &bAlreadyThere);
			if (bAlreadyThere)
			{
				Log.Error(*FString::Printf(TEXT("The variable name '%s' is used more than once"), *Variable.VarName.ToString()));
				bValid = false;
			}
			else if (Parent->FindPropertyByName(Variable.VarName) != nullptr)
			{
				Log.Error(*FString::Printf(TEXT("The variable '%s' hides a variable of the parent class %s"), *Variable.VarName.ToString(), *Parent->GetName()));
				bValid = false;
			}
			else if (Variable.VarType.PinCategory.IsNone())
			{
				Log.Error(*FString::Printf(TEXT("The variable '%s' has no type"), *Variable.VarName.ToString()));
				bValid = false;
			}
		}
		return bValid;
	}

	UBlueprintGeneratedClass* FBlueprintCompiler::MakeClass()
	{
		UClass* Parent = Blueprint.ParentClass;
		UClass* OldClass = Blueprint.GeneratedClass;
		UObject* Outer = Blueprint.GetOuter();
		const FName ClassName(*(Blueprint.GetName() + TEXT("_C")));
		UClass* ClassType = Blueprint.IsA(UAnimBlueprint::StaticClass()) ? UAnimBlueprintGeneratedClass::StaticClass() : UBlueprintGeneratedClass::StaticClass();
		if (OldClass != nullptr && OldClass->IsA(UBlueprintGeneratedClass::StaticClass()))
		{
			ClassType = OldClass->GetClass();
		}
		RetireOldClass(OldClass);
		if (UObject* InTheWay = StaticFindObjectFast(nullptr, Outer, ClassName))
		{
			RetireOldClass(Cast<UClass>(InTheWay));
		}
		UBlueprintGeneratedClass* Class = static_cast<UBlueprintGeneratedClass*>(NewObject<UObject>(Outer, ClassType, ClassName, RF_Public));
		Class->SetSuperStruct(Parent);
		Class->ClassFlags = CLASS_CompiledFromBlueprint | (Parent->ClassFlags & CLASS_Inherit);
		if (Blueprint.BlueprintType == BPTYPE_Interface)
		{
			Class->ClassFlags |= CLASS_Interface | CLASS_Abstract;
		}
		Class->ClassCastFlags = Parent->ClassCastFlags;
		Class->ClassWithin = Parent->ClassWithin;
		Class->ClassConfigName = Parent->ClassConfigName;
		Class->ClassGeneratedBy = &Blueprint;
		Class->SimpleConstructionScript = Blueprint.SimpleConstructionScript;
		Class->Timelines = Blueprint.Timelines;
		if (UAnimBlueprint* AnimBlueprint = Cast<UAnimBlueprint>(&Blueprint))
		{
			static_cast<UAnimBlueprintGeneratedClass*>(Class)->TargetSkeleton = AnimBlueprint->TargetSkeleton;
		}
		return Class;
	}

	void FBlueprintCompiler::RetireOldClass(UClass* OldClass)
	{
		if (OldClass == nullptr || OldClass->GetOuter() == GetTransientPackage())
		{
			return;
		}
		// The old class stays alive for objects made from it; it leaves the name to its successor.
		const int32 Index = ++RetiredClassCount;
		if (UObject* OldDefaults = OldClass->GetDefaultObject(false))
		{
			OldDefaults->Rename(*FString::Printf(TEXT("REINST_Default__%s_%d"), *OldClass->GetName(), Index), GetTransientPackage(), REN_DontCreateRedirectors | REN_NonTransactional | REN_DoNotDirty | REN_ForceNoResetLoaders);
			OldDefaults->ClearFlags(RF_Public | RF_Standalone);
		}
		OldClass->Rename(*FString::Printf(TEXT("REINST_%s_%d"), *OldClass->GetName(), Index), GetTransientPackage(), REN_DontCreateRedirectors | REN_NonTransactional | REN_DoNotDirty | REN_ForceNoResetLoaders);
		OldClass->ClearFlags(RF_Public | RF_Standalone);
	}

	void FBlueprintCompiler::AddVariables(UBlueprintGeneratedClass* Class)
	{
		// AddCppProperty puts each property in front, so the last declared goes first.
		if (USimpleConstructionScript* Script = Blueprint.SimpleConstructionScript)
		{
			const TArray<USCS_Node*>& Nodes = Script->GetAllNodes();
			for (int32 Index = Nodes.Num() - 1; Index >= 0; --Index)
			{
				const USCS_Node* Node = Nodes[Index];
				if (Node == nullptr || Node->ComponentClass == nullptr || Node->GetVariableName().IsNone())
				{
					continue;
				}
				if (Class->GetSuperClass()->FindPropertyByName(Node->GetVariableName()) != nullptr)
				{
					Log.Error(*FString::Printf(TEXT("The component '%s' hides a variable of the parent class"), *Node->GetVariableName().ToString()));
					continue;
				}
				FObjectProperty* Property = new FObjectProperty(Class, Node->GetVariableName(), RF_Public, 0, CPF_None, Node->ComponentClass);
				Property->PropertyFlags |= CPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_NonTransactional | CPF_InstancedReference;
				Property->SetMetaData(TEXT("Category"), TEXT("Default"));
				Class->AddCppProperty(Property);
			}
		}
		for (int32 Index = Blueprint.NewVariables.Num() - 1; Index >= 0; --Index)
		{
			const FBPVariableDescription& Variable = Blueprint.NewVariables[Index];
			FProperty* Property = CreatePropertyFromPinType(Class, Variable.VarName, Variable.VarType, static_cast<EPropertyFlags>(Variable.PropertyFlags), Class);
			if (Property == nullptr)
			{
				Log.Error(*FString::Printf(TEXT("The variable '%s' has a type that no property can hold (%s)"), *Variable.VarName.ToString(), *UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString()));
				continue;
			}
			Property->RepNotifyFunc = Variable.RepNotifyFunc;
			if (!Variable.Category.IsEmpty())
			{
				Property->SetMetaData(TEXT("Category"), *Variable.Category.ToString());
			}
			if (!Variable.FriendlyName.IsEmpty())
			{
				Property->SetMetaData(TEXT("DisplayName"), *Variable.FriendlyName);
			}
			for (const FBPVariableMetaDataEntry& Entry : Variable.MetaDataArray)
			{
				Property->SetMetaData(Entry.DataKey, *Entry.DataValue);
			}
			if (FMulticastDelegateProperty* Delegate = CastField<FMulticastDelegateProperty>(Property))
			{
				Delegate->SignatureFunction = Class->FindFunctionByName(FName(*(Variable.VarName.ToString() + TEXT("__DelegateSignature"))), EIncludeSuperFlag::ExcludeSuper);
			}
			Class->AddCppProperty(Property);
		}
	}

	UFunction* FBlueprintCompiler::AddFunction(UBlueprintGeneratedClass* Class, FName Name, const UFunction* Signature, EFunctionFlags Flags, const TArray<const UEdGraphPin*>& Inputs, const TArray<const UEdGraphPin*>& Outputs)
	{
		if (Class->FindFunctionByName(Name, EIncludeSuperFlag::ExcludeSuper) != nullptr)
		{
			Log.Error(*FString::Printf(TEXT("The function name '%s' is used more than once"), *Name.ToString()));
			return nullptr;
		}
		UFunction* Function = NewObject<UFunction>(Class, Name, RF_Public);
		Function->FunctionFlags = Flags;
		if (Signature != nullptr)
		{
			Function->SetSuperStruct(const_cast<UFunction*>(Signature));
		}
		TArray<FProperty*> Parameters;
		bool bHasOutputs = false;
		auto AddParameter = [&](const UEdGraphPin* Pin, bool bOutput)
		{
			EPropertyFlags ParamFlags = CPF_Parm;
			if (bOutput)
			{
				ParamFlags |= CPF_OutParm;
				if (Pin->PinName == UEdGraphSchema_K2::PN_ReturnValue)
				{
					ParamFlags |= CPF_ReturnParm;
				}
				bHasOutputs = true;
			}
			else if (Pin->PinType.bIsReference)
			{
				ParamFlags |= CPF_OutParm | CPF_ReferenceParm;
			}
			FProperty* Parameter = CreatePropertyFromPinType(Function, Pin->PinName, Pin->PinType, ParamFlags, Class);
			if (Parameter == nullptr)
			{
				Log.Error(*FString::Printf(TEXT("The parameter '%s' of %s has a type that no property can hold (%s)"), *Pin->PinName.ToString(), *Name.ToString(), *UEdGraphSchema_K2::TypeToText(Pin->PinType).ToString()), Pin->GetOwningNode());
				return;
			}
			if (!bOutput && !Pin->DefaultValue.IsEmpty())
			{
				Function->SetMetaData(FName(*(TEXT("CPP_Default_") + Pin->PinName.ToString())), *Pin->DefaultValue);
			}
			Parameters.Add(Parameter);
		};
		for (const UEdGraphPin* Pin : Inputs)
		{
			AddParameter(Pin, false);
		}
		for (const UEdGraphPin* Pin : Outputs)
		{
			AddParameter(Pin, true);
		}
		for (int32 Index = Parameters.Num() - 1; Index >= 0; --Index)
		{
			Function->AddCppProperty(Parameters[Index]);
		}
		if (bHasOutputs)
		{
			Function->FunctionFlags |= FUNC_HasOutParms;
		}
		Function->StaticLink(true);
		// Functions keep the order they were made in, which is also the order a load gives them.
		UField** Tail = &Class->Children;
		while (*Tail != nullptr)
		{
			Tail = &(*Tail)->Next;
		}
		*Tail = Function;
		Class->AddFunctionToFunctionMap(Function, Name);
		return Function;
	}

	void FBlueprintCompiler::AddFunctions(UBlueprintGeneratedClass* Class)
	{
		// Delegate signatures first: the dispatcher variables point at them.
		for (UEdGraph* Graph : Blueprint.DelegateSignatureGraphs)
		{
			if (Graph == nullptr)
			{
				continue;
			}
			TArray<const UEdGraphPin*> Inputs;
			for (const UEdGraphNode* Node : Graph->Nodes)
			{
				if (const UK2Node_FunctionEntry* Entry = Cast<UK2Node_FunctionEntry>(Node))
				{
					for (const UEdGraphPin* Pin : Entry->Pins)
					{
						if (Pin->Direction == EGPD_Output && IsOutputParameterPin(Pin))
						{
							Inputs.Add(Pin);
						}
					}
				}
			}
			AddFunction(Class, FName(*(Graph->GetName() + TEXT("__DelegateSignature"))), nullptr, FUNC_Public | FUNC_Delegate | FUNC_MulticastDelegate, Inputs, {});
		}
		// The functions of the Blueprint's own graphs, then those implementing its interfaces.
		TArray<UEdGraph*> FunctionGraphs(Blueprint.FunctionGraphs);
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			for (UEdGraph* Graph : Interface.Graphs)
			{
				FunctionGraphs.Add(Graph);
			}
		}
		for (UEdGraph* Graph : FunctionGraphs)
		{
			if (Graph == nullptr)
			{
				continue;
			}
			TArray<UK2Node_FunctionEntry*> Entries;
			Graph->GetNodesOfClass(Entries);
			if (Entries.Num() != 1)
			{
				Log.Error(*FString::Printf(TEXT("The function graph %s must have exactly one entry node; it has %d"), *Graph->GetName(), Entries.Num()));
				continue;
			}
			const UK2Node_FunctionEntry* Entry = Entries[0];
			TArray<const UEdGraphPin*> Inputs;
			TArray<const UEdGraphPin*> Outputs;
			for (const UEdGraphPin* Pin : Entry->Pins)
			{
				if (Pin->Direction == EGPD_Output && IsOutputParameterPin(Pin))
				{
					Inputs.Add(Pin);
				}
			}
			TArray<UK2Node_FunctionResult*> Results;
			Graph->GetNodesOfClass(Results);
			if (Results.Num() > 0)
			{
				for (const UEdGraphPin* Pin : Results[0]->Pins)
				{
					if (Pin->Direction == EGPD_Input && IsOutputParameterPin(Pin))
					{
						Outputs.Add(Pin);
					}
				}
			}
			const FName Name = Entry->CustomGeneratedFunctionName.IsNone() ? Graph->GetFName() : Entry->CustomGeneratedFunctionName;
			if (UFunction* Function = AddFunction(Class, Name, Entry->FindSignatureFunction(), static_cast<EFunctionFlags>(Entry->GetFunctionFlags()), Inputs, Outputs))
			{
				if (!Entry->MetaData.Category.IsEmpty())
				{
					Function->SetMetaData(TEXT("Category"), *Entry->MetaData.Category.ToString());
				}
				if (!Entry->MetaData.ToolTip.IsEmpty())
				{
					Function->SetMetaData(TEXT("ToolTip"), *Entry->MetaData.ToolTip.ToString());
				}
				for (const TPair<FName, FString>& Pair : Entry->MetaData.GetMetaDataMap())
				{
					Function->SetMetaData(Pair.Key, *Pair.Value);
				}
			}
		}
		// Events of the event graphs become functions of the class too.
		TMap<FName, const UK2Node_Event*> Events;
		for (UEdGraph* Graph : Blueprint.UbergraphPages)
		{
			if (Graph == nullptr)
			{
				continue;
			}
			TArray<UK2Node_Event*> Nodes;
			Graph->GetNodesOfClass(Nodes);
			for (const UK2Node_Event* Event : Nodes)
			{
				const FName Name = Event->GetFunctionName();
				if (Name.IsNone())
				{
					Log.Error(TEXT("@@ has no function name"), Event);
					continue;
				}
				if (const UK2Node_Event* const* Other = Events.Find(Name))
				{
					Log.Error(*FString::Printf(TEXT("@@ implements '%s', which %s already does"), *Name.ToString(), *(*Other)->GetNodeTitle(ENodeTitleType::ListView).ToString()), Event);
					continue;
				}
				Events.Add(Name, Event);
				const UFunction* Signature = Event->bOverrideFunction ? Event->FindEventSignatureFunction() : nullptr;
				if (Event->bOverrideFunction && Signature == nullptr)
				{
					// Reported by the node's own check.
					continue;
				}
				TArray<const UEdGraphPin*> Inputs;
				for (const UEdGraphPin* Pin : Event->Pins)
				{
					if (Pin->Direction == EGPD_Output && IsOutputParameterPin(Pin) && Pin->PinName != UK2Node_Event::DelegateOutputName)
					{
						Inputs.Add(Pin);
					}
				}
				const EFunctionFlags Flags = Signature != nullptr ? static_cast<EFunctionFlags>((Signature->FunctionFlags & ~(FUNC_Native | FUNC_Final)) | FUNC_Event) : static_cast<EFunctionFlags>(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Event | FUNC_Public | Event->FunctionFlags);
				AddFunction(Class, Name, Signature, Flags, Inputs, {});
			}
		}
	}

	void FBlueprintCompiler::AddInterfaces(UBlueprintGeneratedClass* Class)
	{
		for (const FBPInterfaceDescription& Description : Blueprint.ImplementedInterfaces)
		{
			UClass* Interface = Description.Interface.Get();
			if (Interface == nullptr || !Interface->HasAnyClassFlags(CLASS_Interface))
			{
				Log.Error(*FString::Printf(TEXT("An interface that %s implements is missing or is not an interface"), *Blueprint.GetName()));
				continue;
			}
			FImplementedInterface Implemented;
			Implemented.Class = Interface;
			Implemented.bImplementedByK2 = true;
			Class->Interfaces.Add(Implemented);
		}
	}

	void FBlueprintCompiler::SetDefaults(UBlueprintGeneratedClass* Class, UClass* OldClass)
	{
		UObject* Defaults = Class->GetDefaultObject();
		if (Defaults == nullptr)
		{
			return;
		}
		// Values the old class's defaults held beyond its parent's carry over, by property name.
		UObject* OldDefaults = OldClass != nullptr ? OldClass->GetDefaultObject(false) : nullptr;
		UObject* OldParentDefaults = OldClass != nullptr && OldClass->GetSuperClass() != nullptr ? OldClass->GetSuperClass()->GetDefaultObject(false) : nullptr;
		if (OldDefaults != nullptr)
		{
			for (FProperty* Property = Class->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
			{
				FProperty* OldProperty = OldClass->FindPropertyByName(Property->GetFName());
				if (OldProperty == nullptr || OldProperty->GetClass() != Property->GetClass() || Property->HasAnyPropertyFlags(CPF_Transient))
				{
					continue;
				}
				const UClass* OldOwner = OldProperty->GetOwnerClass();
				const bool bInheritedUnchanged = OldParentDefaults != nullptr && OldOwner != nullptr && OldParentDefaults->IsA(OldOwner) && OldProperty->Identical_InContainer(OldDefaults, OldParentDefaults);
				// Subobjects of the old defaults (components made by a constructor) stay with them: the new
				// defaults have their own.
				const FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(OldProperty);
				const UObject* Held = ObjectProperty != nullptr ? ObjectProperty->GetObjectPropertyValue_InContainer(OldDefaults) : nullptr;
				if (bInheritedUnchanged || (Held != nullptr && Held->IsIn(OldDefaults)) || OldProperty->HasAnyPropertyFlags(CPF_InstancedReference | CPF_ContainsInstancedReference))
				{
					continue;
				}
				FString Text;
				OldProperty->ExportText_InContainer(0, Text, OldDefaults, nullptr, OldDefaults, PPF_None);
				Property->ImportText_InContainer(*Text, Defaults, Defaults, PPF_None);
			}
		}
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			if (Variable.DefaultValue.IsEmpty())
			{
				continue;
			}
			FProperty* Property = Class->FindPropertyByName(Variable.VarName);
			if (Property != nullptr && Property->ImportText_InContainer(*Variable.DefaultValue, Defaults, Defaults, PPF_None) == nullptr)
			{
				Log.Warning(*FString::Printf(TEXT("The default value '%s' of variable '%s' doesn't read as %s"), *Variable.DefaultValue, *Variable.VarName.ToString(), *UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString()));
			}
		}
	}

	void FBlueprintCompiler::CheckGraphs()
	{
		TArray<UEdGraph*> Graphs;
		Blueprint.GetAllGraphs(Graphs);
		for (const UEdGraph* Graph : Graphs)
		{
			CheckGraph(Graph);
		}
	}

	void FBlueprintCompiler::CheckGraph(const UEdGraph* Graph)
	{
		TSet<const UEdGraphNode*> NodesOfGraph;
		for (const UEdGraphNode* Node : Graph->Nodes)
		{
			NodesOfGraph.Add(Node);
		}
		for (const UEdGraphNode* Node : Graph->Nodes)
		{
			if (Node == nullptr)
			{
				continue;
			}
			for (const UEdGraphPin* Pin : Node->Pins)
			{
				for (const UEdGraphPin* Other : Pin->LinkedTo)
				{
					if (Other == nullptr || !NodesOfGraph.Contains(Other->GetOwningNode()))
					{
						Log.Error(*FString::Printf(TEXT("Pin %s of @@ links to a node outside its graph"), *Pin->PinName.ToString()), Node);
					}
				}
			}
			const UK2Node* K2Node = Cast<UK2Node>(Node);
			if (K2Node == nullptr)
			{
				continue;
			}
			K2Node->ValidateNodeDuringCompilation(Log);
			// A node that nothing runs is left out; values read from it are its defaults, which is worth a warning.
			const UEdGraphPin* Exec = K2Node->FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input);
			if (!K2Node->IsNodePure() && Exec != nullptr && Exec->LinkedTo.Num() == 0)
			{
				for (const UEdGraphPin* Pin : K2Node->Pins)
				{
					if (Pin->Direction == EGPD_Output && Pin->PinType.PinCategory != UEdGraphSchema_K2::PC_Exec && Pin->LinkedTo.Num() > 0)
					{
						Log.Warning(TEXT("@@ was pruned because its Exec pin is not connected, the connected value is not available and will instead be read as default"), K2Node);
						break;
					}
				}
			}
		}
	}

	void FBlueprintCompiler::RecompileChildren(UClass* OldClass, UClass* NewClass)
	{
		TArray<UBlueprint*> Children;
		for (TObjectIterator<UBlueprint> It; It; ++It)
		{
			if (It->ParentClass == OldClass)
			{
				Children.Add(*It);
			}
		}
		for (UBlueprint* Child : Children)
		{
			Child->ParentClass = NewClass;
			FKismetEditorUtilities::CompileBlueprint(Child);
		}
	}
}
