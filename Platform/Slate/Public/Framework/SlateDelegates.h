#pragma once

#include "CoreMinimal.h"
#include "Input/Events.h"
#include "Input/Reply.h"
#include "Layout/Geometry.h"
#include "Types/SlateEnums.h"

class SWidget;

DECLARE_DELEGATE_RetVal(FReply, FOnClicked);
DECLARE_DELEGATE_RetVal_TwoParams(FReply, FOnKeyDown, const FGeometry&, const FKeyEvent&);
DECLARE_DELEGATE_OneParam(FOnTextChanged, const FText&);
DECLARE_DELEGATE_TwoParams(FOnTextCommitted, const FText&, ETextCommit::Type);
DECLARE_DELEGATE_RetVal(TSharedRef<SWidget>, FOnGetContent);
DECLARE_DELEGATE_OneParam(FOnCheckStateChanged, bool);
DECLARE_DELEGATE(FSimpleNoReplyPointerEventHandler);
