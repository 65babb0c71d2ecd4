#include "Framework/Application/SlateApplication.h"

#include "Framework/Docking/TabManager.h"
#include "HAL/PlatformTime.h"
#include "Layout/Children.h"
#include "Widgets/Docking/SDockTab.h"

TSharedPtr<FSlateApplication> FSlateApplication::CurrentApplication;

void FSlateApplication::Create()
{
	FSlateApplication& Application = Get();
	if (!Application.TickerHandle.IsValid())
	{
		Application.TickerHandle = FTSTicker::GetCoreTicker().AddTicker(TEXT("Slate"), 0.0f, [](float)
		{
			if (IsInitialized())
			{
				Get().Tick();
			}
			return true;
		});
	}
}

void FSlateApplication::Shutdown()
{
	if (CurrentApplication.IsValid())
	{
		FTSTicker::RemoveTicker(CurrentApplication->TickerHandle);
		CurrentApplication.Reset();
		CurrentBaseApplication = nullptr;
	}
}

FSlateApplication& FSlateApplication::Get()
{
	if (!CurrentApplication.IsValid())
	{
		CurrentApplication = MakeShared<FSlateApplication>();
		CurrentApplication->Renderer = MakeUnique<FSlateRenderer>();
		CurrentApplication->CurrentTime = FPlatformTime::Seconds();
		CurrentBaseApplication = CurrentApplication.Get();
	}
	return *CurrentApplication;
}

void FSlateApplication::Tick(ESlateTickType TickType)
{
	const double Now = FPlatformTime::Seconds();
	DeltaTime = LastTickTime < 0.0 ? 0.0f : static_cast<float>(Now - LastTickTime);
	LastTickTime = Now;
	CurrentTime = Now;
	if (TickType == ESlateTickType::Time || TickType == ESlateTickType::PlatformAndInput)
	{
		return;
	}
	for (const TSharedRef<SWidget>& Root : GetStandInRoots())
	{
		TickWidgetTree(Root);
	}
}

void FSlateApplication::TickWidgetTree(const TSharedRef<SWidget>& Widget)
{
	// Only what is shown ticks, as in the engine, where ticks come with painting.
	if (!Widget->GetVisibility().IsVisible())
	{
		return;
	}
	Widget->StandInRunActiveTimers(CurrentTime);
	Widget->Tick(Widget->GetCachedGeometry(), CurrentTime, DeltaTime);
	// A tick or a timer may change the children: walk a copy.
	TArray<TSharedRef<SWidget>> Children;
	if (FChildren* WidgetChildren = Widget->GetChildren())
	{
		for (int32 Index = 0; Index < WidgetChildren->Num(); ++Index)
		{
			Children.Add(WidgetChildren->GetChildAt(Index));
		}
	}
	for (const TSharedRef<SWidget>& Child : Children)
	{
		TickWidgetTree(Child);
	}
}

bool FSlateApplication::SetKeyboardFocus(const TSharedPtr<SWidget>& OptionalWidgetToFocus, EFocusCause ReasonFocusIsChanging)
{
	FocusedWidget = OptionalWidgetToFocus;
	return OptionalWidgetToFocus.IsValid();
}

bool FSlateApplication::SetUserFocus(uint32 InUserIndex, const TSharedPtr<SWidget>& WidgetToFocus, EFocusCause ReasonFocusIsChanging)
{
	return SetKeyboardFocus(WidgetToFocus, ReasonFocusIsChanging);
}

void FSlateApplication::ClearKeyboardFocus(EFocusCause ReasonFocusIsChanging)
{
	FocusedWidget.Reset();
}

bool FSlateApplication::HasFocusedDescendants(const TSharedRef<const SWidget>& Widget) const
{
	return Widget->HasFocusedDescendants();
}

namespace
{
	template<typename EventType, typename HandlerType>
	bool RouteUpFromFocus(TSharedPtr<SWidget> Widget, const EventType& Event, HandlerType Handler)
	{
		for (; Widget.IsValid(); Widget = Widget->GetParentWidget())
		{
			if (!FSlateApplication::IsStandInWidgetEnabled(*Widget))
			{
				continue;
			}
			const FReply Reply = Handler(*Widget, Event);
			if (Reply.IsEventHandled())
			{
				if (Reply.GetUserFocusRecepient().IsValid())
				{
					FSlateApplication::Get().SetKeyboardFocus(Reply.GetUserFocusRecepient());
				}
				return true;
			}
		}
		return false;
	}
}

bool FSlateApplication::ProcessKeyDownEvent(const FKeyEvent& InKeyEvent)
{
	return RouteUpFromFocus(FocusedWidget.Pin(), InKeyEvent,
		[](SWidget& Widget, const FKeyEvent& Event) { return Widget.OnKeyDown(Widget.GetCachedGeometry(), Event); });
}

bool FSlateApplication::ProcessKeyUpEvent(const FKeyEvent& InKeyEvent)
{
	return RouteUpFromFocus(FocusedWidget.Pin(), InKeyEvent,
		[](SWidget& Widget, const FKeyEvent& Event) { return Widget.OnKeyUp(Widget.GetCachedGeometry(), Event); });
}

bool FSlateApplication::ProcessKeyCharEvent(const FCharacterEvent& InCharacterEvent)
{
	return RouteUpFromFocus(FocusedWidget.Pin(), InCharacterEvent,
		[](SWidget& Widget, const FCharacterEvent& Event) { return Widget.OnKeyChar(Widget.GetCachedGeometry(), Event); });
}

void FSlateApplication::StandInCloseAllWindows()
{
	for (const TSharedRef<SDockTab>& Tab : FGlobalTabmanager::Get()->GetStandInLiveTabs())
	{
		Tab->StandInForceCloseTab();
	}
	ExtraRoots.Empty();
	FocusedWidget.Reset();
}

void FSlateApplication::StandInAddRoot(const TSharedRef<SWidget>& Root)
{
	StandInRemoveRoot(Root);
	ExtraRoots.Add(Root);
}

void FSlateApplication::StandInRemoveRoot(const TSharedRef<SWidget>& Root)
{
	ExtraRoots.RemoveAll([&Root](const TSharedRef<SWidget>& Existing) { return &Existing.Get() == &Root.Get(); });
}

TArray<TSharedRef<SWidget>> FSlateApplication::GetStandInRoots() const
{
	TArray<TSharedRef<SWidget>> Roots;
	for (const TSharedRef<SDockTab>& Tab : FGlobalTabmanager::Get()->GetStandInLiveTabs())
	{
		Roots.Add(Tab);
	}
	for (const TSharedRef<SWidget>& Root : ExtraRoots)
	{
		Roots.Add(Root);
	}
	return Roots;
}

bool FSlateApplication::IsStandInWidgetShown(const SWidget& Widget)
{
	if (!Widget.GetVisibility().IsVisible())
	{
		return false;
	}
	const TSharedPtr<SWidget> Parent = Widget.GetParentWidget();
	return !Parent.IsValid() || IsStandInWidgetShown(*Parent);
}

bool FSlateApplication::IsStandInWidgetEnabled(const SWidget& Widget)
{
	if (!Widget.IsEnabled())
	{
		return false;
	}
	const TSharedPtr<SWidget> Parent = Widget.GetParentWidget();
	return !Parent.IsValid() || IsStandInWidgetEnabled(*Parent);
}
