#include "K2Node_CallFunction.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/UnrealType.h"
#include "BlueprintGraphPrivate.h"

UK2Node_CallFunction::UK2Node_CallFunction(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bIsPureFunc(false)
	, bIsConstFunc(false)
	, bIsInterfaceCall(false)
	, bIsFinalFunction(false)
	, bIsBeadFunction(false)
	, bDefaultsToPureFunc(false)
	, bWantsEnumToExecExpansion(false)
{
}

void UK2Node_CallFunction::SetFromFunction(const UFunction* Function)
{
	if (Function == nullptr)
	{
		return;
	}
	Modify();
	bIsPureFunc = Function->HasAnyFunctionFlags(FUNC_BlueprintPure);
	bIsConstFunc = Function->HasAnyFunctionFlags(FUNC_Const);
	bIsFinalFunction = Function->HasAnyFunctionFlags(FUNC_Final) || Function->HasAnyFunctionFlags(FUNC_Static);
	UClass* Owner = Function->GetOwnerClass();
	const UClass* SelfClass = GetBlueprintClassFromNode();
	const UBlueprint* Blueprint = GetBlueprint();
	const bool bSelf = !Function->HasAnyFunctionFlags(FUNC_Static) && Owner != nullptr && ((SelfClass != nullptr && SelfClass->IsChildOf(Owner)) || (Blueprint != nullptr && Blueprint->ParentClass != nullptr && Blueprint->ParentClass->IsChildOf(Owner)));
	if (bSelf)
	{
		FunctionReference.SetSelfMember(Function->GetFName());
	}
	else
	{
		FunctionReference.SetExternalMember(Function->GetFName(), Owner);
	}
}

UFunction* UK2Node_CallFunction::GetTargetFunction() const
{
	UClass* SelfClass = GetBlueprintClassFromNode();
	if (UFunction* Function = GetTargetFunctionFromSkeletonClass(SelfClass, FunctionReference))
	{
		return Function;
	}
	// Before the Blueprint's first compile, self calls are found on its parent class.
	const UBlueprint* Blueprint = GetBlueprint();
	return FunctionReference.IsSelfContext() && Blueprint != nullptr && Blueprint->ParentClass != nullptr ? Blueprint->ParentClass->FindFunctionByName(GetFunctionName()) : nullptr;
}

UFunction* UK2Node_CallFunction::GetTargetFunctionFromSkeletonClass(UClass* SkeletonClass, const FMemberReference& Reference)
{
	return Reference.ResolveMemberFunction(SkeletonClass);
}

UEdGraphPin* UK2Node_CallFunction::GetReturnValuePin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

FText UK2Node_CallFunction::GetUserFacingFunctionName(const UFunction* Function, ENodeTitleType::Type NodeTitleType)
{
	return Function != nullptr ? Function->GetDisplayNameText() : FText::GetEmpty();
}

FText UK2Node_CallFunction::GetFunctionContextString() const
{
	const UFunction* Function = GetTargetFunction();
	if (Function == nullptr || Function->HasAnyFunctionFlags(FUNC_Static))
	{
		return FText::GetEmpty();
	}
	const UClass* Owner = Function->GetOwnerClass();
	// Functions the Blueprint declares itself are called on self without saying so.
	if (Owner == nullptr || Owner->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		return FText::GetEmpty();
	}
	return FText::FromString(TEXT("Target is ") + Owner->GetDisplayNameText().ToString());
}

bool UK2Node_CallFunction::CreatePinsForFunctionCall(const UFunction* Function)
{
	if (Function == nullptr)
	{
		return false;
	}
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	if (!bIsPureFunc)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	}
	if (!Function->HasAnyFunctionFlags(FUNC_Static))
	{
		UEdGraphPin* Self = FunctionReference.IsSelfContext()
			? CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, UEdGraphSchema_K2::PSC_Self, nullptr, UEdGraphSchema_K2::PN_Self)
			: CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, NAME_None, Function->GetOwnerClass(), UEdGraphSchema_K2::PN_Self);
		Self->PinFriendlyName = FText::FromString(TEXT("Target"));
	}
	const FString* WorldContext = Function->FindMetaData(FBlueprintMetadata::MD_WorldContext);
	for (FProperty* Param = CastField<FProperty>(Function->ChildProperties); Param != nullptr; Param = CastField<FProperty>(Param->Next))
	{
		if (!Param->HasAnyPropertyFlags(CPF_Parm))
		{
			continue;
		}
		const bool bIsOutput = Param->HasAnyPropertyFlags(CPF_ReturnParm) || (Param->HasAnyPropertyFlags(CPF_OutParm) && !Param->HasAnyPropertyFlags(CPF_ReferenceParm));
		FEdGraphPinType Type;
		if (!Schema->ConvertPropertyToPinType(Param, Type))
		{
			continue;
		}
		UEdGraphPin* Pin = CreatePin(bIsOutput ? EGPD_Output : EGPD_Input, Type, Param->GetFName());
		BlueprintGraph::Private::SetDefaultFromFunctionMetadata(Pin, Function);
		// The world context comes from the Blueprint's object, so its pin is not shown.
		if (WorldContext != nullptr && Param->GetName() == *WorldContext)
		{
			Pin->bHidden = true;
		}
	}
	return true;
}

void UK2Node_CallFunction::AllocateDefaultPins()
{
	if (!CreatePinsForFunctionCall(GetTargetFunction()) && !bIsPureFunc)
	{
		// A call of a function not found keeps its exec pins so that its links survive a reload.
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	}
	Super::AllocateDefaultPins();
}

FText UK2Node_CallFunction::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const UFunction* Function = GetTargetFunction();
	const FString Name = Function != nullptr ? GetUserFacingFunctionName(Function, TitleType).ToString() : FName::NameToDisplayString(GetFunctionName().ToString(), false);
	if (TitleType == ENodeTitleType::FullTitle)
	{
		const FText Context = GetFunctionContextString();
		if (!Context.IsEmpty())
		{
			return FText::FromString(Name + TEXT("\n") + Context.ToString());
		}
	}
	return FText::FromString(Name);
}

FText UK2Node_CallFunction::GetTooltipText() const
{
	const UFunction* Function = GetTargetFunction();
	return Function != nullptr ? Function->GetToolTipText() : FText::FromName(GetFunctionName());
}

FText UK2Node_CallFunction::GetKeywords() const
{
	const UFunction* Function = GetTargetFunction();
	const FString* Keywords = Function != nullptr ? Function->FindMetaData(TEXT("Keywords")) : nullptr;
	return Keywords != nullptr ? FText::FromString(*Keywords) : FText::GetEmpty();
}

void UK2Node_CallFunction::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (GetFunctionName().IsNone())
	{
		MessageLog.Error(TEXT("@@ is not set up: it calls no function"), this);
		return;
	}
	if (GetTargetFunction() == nullptr)
	{
		MessageLog.Error(*FString::Printf(TEXT("Could not find a function named \"%s\" for @@"), *GetFunctionName().ToString()), this);
		return;
	}
	if (!bIsPureFunc && FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input) == nullptr)
	{
		MessageLog.Error(TEXT("@@ has no exec pins; refresh the node"), this);
	}
}
