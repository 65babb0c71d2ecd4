#pragma once

#include "Application/SlateApplicationBase.h"
#include "CoreMinimal.h"
#include "Containers/Ticker.h"
#include "Input/Events.h"
#include "Widgets/SWidget.h"

enum class ESlateTickType : uint8
{
	All,
	Time,
	PlatformAndInput,
	Widgets
};

/**
 * The application: ticks the widgets that are shown (their Tick and active timers) and routes keyboard
 * events to the focused widget and up through its parents. The stand-in shows the open tabs and any roots
 * added by hand; the editor's loop ticks it once a turn.
 */
class FSlateApplication : public FSlateApplicationBase
{
public:
	/** Makes the application, if there is none, and has the core ticker tick it each turn of the loop. */
	static SLATE_API void Create();
	static SLATE_API void Shutdown();
	static bool IsInitialized()
	{
		return CurrentApplication.IsValid();
	}
	/** The application; made on first use, so that tests need no Create. */
	static SLATE_API FSlateApplication& Get();

	/** One frame: polls time from FPlatformTime, then ticks every shown widget and runs the due timers. */
	SLATE_API void Tick(ESlateTickType TickType = ESlateTickType::All);

	SLATE_API bool SetKeyboardFocus(const TSharedPtr<SWidget>& OptionalWidgetToFocus, EFocusCause ReasonFocusIsChanging = EFocusCause::SetDirectly);
	SLATE_API bool SetUserFocus(uint32 InUserIndex, const TSharedPtr<SWidget>& WidgetToFocus, EFocusCause ReasonFocusIsChanging = EFocusCause::SetDirectly);
	SLATE_API void ClearKeyboardFocus(EFocusCause ReasonFocusIsChanging = EFocusCause::SetDirectly);
	SLATE_API bool HasFocusedDescendants(const TSharedRef<const SWidget>& Widget) const;

	/** Routes the key from the focused widget up to the root until one handles it; gives whether one did. */
	SLATE_API bool ProcessKeyDownEvent(const FKeyEvent& InKeyEvent);
	SLATE_API bool ProcessKeyUpEvent(const FKeyEvent& InKeyEvent);
	SLATE_API bool ProcessKeyCharEvent(const FCharacterEvent& InCharacterEvent);

	// ---- Stand-in only ----------------------------------------------------------------------------------
	/** Shows a widget as a window of its own, so that it is ticked (tests use it without a tab). */
	SLATE_API void StandInAddRoot(const TSharedRef<SWidget>& Root);
	SLATE_API void StandInRemoveRoot(const TSharedRef<SWidget>& Root);
	/**
	 * Closes every tab and window, as the editor does before its modules shut down, so that no widget of a
	 * module outlives it.
	 */
	SLATE_API void StandInCloseAllWindows();
	/** The roots shown: the open tabs of the global tab manager, then the roots added by hand. */
	SLATE_API TArray<TSharedRef<SWidget>> GetStandInRoots() const;
	/** Shown: visible itself and all of its parents. */
	static SLATE_API bool IsStandInWidgetShown(const SWidget& Widget);
	/** Enabled: enabled itself and all of its parents, as Slate draws and hits it. */
	static SLATE_API bool IsStandInWidgetEnabled(const SWidget& Widget);

private:
	static SLATE_API TSharedPtr<FSlateApplication> CurrentApplication;
	void TickWidgetTree(const TSharedRef<SWidget>& Widget);
	TArray<TSharedRef<SWidget>> ExtraRoots;
	double LastTickTime = -1.0;
	FTSTicker::FDelegateHandle TickerHandle;
};
