#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"

enum class ECheckBoxState : uint8
{
	Unchecked,
	Checked,
	Undetermined
};

DECLARE_DELEGATE(FExecuteAction);
DECLARE_DELEGATE_RetVal(bool, FCanExecuteAction);
DECLARE_DELEGATE_RetVal(bool, FIsActionChecked);
DECLARE_DELEGATE_RetVal(ECheckBoxState, FGetActionCheckState);
DECLARE_DELEGATE_RetVal(bool, FIsActionButtonVisible);

enum class EUIActionRepeatMode : uint8
{
	RepeatDisabled,
	RepeatEnabled
};

/** What a command does, and when it may. */
struct FUIAction
{
	FUIAction() = default;
	FUIAction(FExecuteAction InitExecuteAction, EUIActionRepeatMode InitRepeatMode = EUIActionRepeatMode::RepeatDisabled)
		: ExecuteAction(InitExecuteAction)
		, RepeatMode(InitRepeatMode)
	{
	}
	FUIAction(FExecuteAction InitExecuteAction, FCanExecuteAction InitCanExecuteAction, EUIActionRepeatMode InitRepeatMode = EUIActionRepeatMode::RepeatDisabled)
		: ExecuteAction(InitExecuteAction)
		, CanExecuteAction(InitCanExecuteAction)
		, RepeatMode(InitRepeatMode)
	{
	}
	FUIAction(FExecuteAction InitExecuteAction, FCanExecuteAction InitCanExecuteAction, FIsActionChecked InitIsCheckedDelegate,
		EUIActionRepeatMode InitRepeatMode = EUIActionRepeatMode::RepeatDisabled)
		: ExecuteAction(InitExecuteAction)
		, CanExecuteAction(InitCanExecuteAction)
		, IsCheckedDelegate(InitIsCheckedDelegate)
		, RepeatMode(InitRepeatMode)
	{
	}

	/** Runs unless the can-execute delegate says no; gives whether it ran. */
	bool Execute() const
	{
		if (CanExecute())
		{
			return ExecuteAction.ExecuteIfBound();
		}
		return false;
	}
	bool CanExecute() const
	{
		return !CanExecuteAction.IsBound() || CanExecuteAction.Execute();
	}
	bool IsBound() const
	{
		return ExecuteAction.IsBound();
	}

	FExecuteAction ExecuteAction;
	FCanExecuteAction CanExecuteAction;
	FIsActionChecked IsCheckedDelegate;
	FGetActionCheckState GetActionCheckState;
	FIsActionButtonVisible IsActionVisibleDelegate;
	EUIActionRepeatMode RepeatMode = EUIActionRepeatMode::RepeatDisabled;
};
