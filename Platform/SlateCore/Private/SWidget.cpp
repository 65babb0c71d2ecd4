#include "Widgets/SWidget.h"

#include "Application/SlateApplicationBase.h"
#include "Dom/JsonObject.h"
#include "Layout/Children.h"
#include "Widgets/DeclarativeSyntaxSupport.h"

#include <atomic>

namespace
{
	std::atomic<uint64> NextStandInWidgetId{1};
}

FSlateApplicationBase* FSlateApplicationBase::CurrentBaseApplication = nullptr;

SWidget::SWidget()
	: EnabledState(true)
	, VisibilityAttribute(EVisibility::Visible)
	, StandInId(NextStandInWidgetId++)
{
}

SWidget::~SWidget() = default;

void SWidget::SWidgetConstruct(const FSlateBaseNamedArgs& Args)
{
	EnabledState = Args._IsEnabled;
	VisibilityAttribute = Args._Visibility;
	ToolTipText = Args._ToolTipText;
	RenderOpacity = Args._RenderOpacity;
	bForceVolatile = Args._ForceVolatile;
	Tag = Args._Tag;
}

bool SWidget::HasKeyboardFocus() const
{
	return FSlateApplicationBase::IsInitialized() && FSlateApplicationBase::Get().GetKeyboardFocusedWidget().Get() == this;
}

bool SWidget::HasFocusedDescendants() const
{
	if (!FSlateApplicationBase::IsInitialized())
	{
		return false;
	}
	TSharedPtr<SWidget> Focused = FSlateApplicationBase::Get().GetKeyboardFocusedWidget();
	for (TSharedPtr<SWidget> Widget = Focused.IsValid() ? Focused->GetParentWidget() : nullptr; Widget.IsValid(); Widget = Widget->GetParentWidget())
	{
		if (Widget.Get() == this)
		{
			return true;
		}
	}
	return false;
}

TSharedPtr<SWidget> SWidget::GetParentWidget() const
{
	return ParentWidgetWeak.Pin();
}

void SWidget::AssignParentWidget(TSharedPtr<SWidget> InParent)
{
	ParentWidget = InParent.Get();
	ParentWidgetWeak = InParent;
}

bool SWidget::ConditionallyDetatchParentWidget(SWidget* InExpectedParent)
{
	if (ParentWidget == InExpectedParent)
	{
		ParentWidget = nullptr;
		ParentWidgetWeak.Reset();
		return true;
	}
	return false;
}

TSharedRef<FActiveTimerHandle> SWidget::RegisterActiveTimer(float TickPeriod, FWidgetActiveTimerDelegate TickFunction)
{
	const double Now = FSlateApplicationBase::IsInitialized() ? FSlateApplicationBase::Get().GetCurrentTime() : 0.0;
	TSharedRef<FActiveTimerHandle> Handle = MakeShared<FActiveTimerHandle>(TickPeriod, MoveTemp(TickFunction), Now + TickPeriod);
	ActiveTimers.Add(Handle);
	return Handle;
}

void SWidget::UnRegisterActiveTimer(const TSharedRef<FActiveTimerHandle>& ActiveTimerHandle)
{
	ActiveTimerHandle->MarkPendingRemoval();
	ActiveTimers.RemoveAll([&ActiveTimerHandle](const TSharedRef<FActiveTimerHandle>& Handle) { return &Handle.Get() == &ActiveTimerHandle.Get(); });
}

void SWidget::StandInRunActiveTimers(double CurrentTime)
{
	// A timer may register or unregister timers (its own included) while it runs: work on a copy.
	const TArray<TSharedRef<FActiveTimerHandle>> Timers = ActiveTimers;
	for (const TSharedRef<FActiveTimerHandle>& Timer : Timers)
	{
		if (!Timer->ExecuteIfDue(CurrentTime))
		{
			ActiveTimers.RemoveAll([&Timer](const TSharedRef<FActiveTimerHandle>& Handle) { return &Handle.Get() == &Timer.Get(); });
		}
	}
}

void SWidget::Invalidate(EInvalidateWidgetReason InvalidateReason)
{
	++InvalidationCount;
}

FString SWidget::ToString() const
{
	return FString::Printf(TEXT("%s [%llu]"), *TypeOfWidget.ToString(), static_cast<unsigned long long>(StandInId));
}

void SWidget::DescribeForStandIn(FJsonObject& Out) const
{
	Out.SetStringField(TEXT("kind"), TEXT("panel"));
}
