// What a handler tells Slate about an input event: handled (it stops travelling up the tree) or not.
#pragma once

#include "CoreMinimal.h"
#include "Types/SlateEnums.h"

class SWidget;

class FReplyBase
{
public:
	bool IsEventHandled() const
	{
		return bIsHandled;
	}

protected:
	explicit FReplyBase(bool bHandled)
		: bIsHandled(bHandled)
	{
	}
	bool bIsHandled;
};

class FReply : public FReplyBase
{
public:
	static FReply Handled()
	{
		return FReply(true);
	}
	static FReply Unhandled()
	{
		return FReply(false);
	}

	/** Asks the application to move keyboard focus to this widget once the event is handled. */
	FReply& SetUserFocus(TSharedRef<SWidget> GiveMeFocus, EFocusCause ReasonFocusIsChanging = EFocusCause::SetDirectly, bool bInAllUsers = false)
	{
		FocusRecipient = GiveMeFocus;
		return *this;
	}
	FReply& ClearUserFocus(bool bInAllUsers = false)
	{
		bReleaseFocus = true;
		return *this;
	}
	const TSharedPtr<SWidget>& GetUserFocusRecepient() const
	{
		return FocusRecipient;
	}
	bool ShouldReleaseUserFocus() const
	{
		return bReleaseFocus;
	}

private:
	explicit FReply(bool bHandled)
		: FReplyBase(bHandled)
	{
	}
	TSharedPtr<SWidget> FocusRecipient;
	bool bReleaseFocus = false;
};
