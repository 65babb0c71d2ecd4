// The base of every widget: attributes polled each frame, the parent link, keyboard events that travel
// up the tree until one widget handles them, and active timers.
#pragma once

#include "CoreMinimal.h"
#include "Input/Events.h"
#include "Input/Reply.h"
#include "Layout/Geometry.h"
#include "Layout/Visibility.h"
#include "Misc/Attribute.h"
#include "Types/SlateEnums.h"
#include "Types/WidgetActiveTimerDelegate.h"
#include "Widgets/InvalidateWidgetReason.h"

class FChildren;
class FJsonObject;
struct FSlateBaseNamedArgs;

class SWidget : public TSharedFromThis<SWidget>
{
public:
	SLATECORE_API SWidget();
	SLATECORE_API virtual ~SWidget();
	SWidget(const SWidget&) = delete;
	SWidget& operator=(const SWidget&) = delete;

	/** Takes the arguments every widget has; the declarative syntax calls it before Construct. */
	SLATECORE_API void SWidgetConstruct(const FSlateBaseNamedArgs& Args);

	bool IsEnabled() const
	{
		return EnabledState.Get(true);
	}
	void SetEnabled(TAttribute<bool> InEnabledState)
	{
		EnabledState = MoveTemp(InEnabledState);
	}
	EVisibility GetVisibility() const
	{
		return VisibilityAttribute.Get(EVisibility::Visible);
	}
	virtual void SetVisibility(TAttribute<EVisibility> InVisibility)
	{
		VisibilityAttribute = MoveTemp(InVisibility);
	}
	float GetRenderOpacity() const
	{
		return RenderOpacity;
	}
	void SetRenderOpacity(float InOpacity)
	{
		RenderOpacity = InOpacity;
	}
	void SetToolTipText(const TAttribute<FText>& InToolTipText)
	{
		ToolTipText = InToolTipText;
	}
	FText GetToolTipText() const
	{
		return ToolTipText.Get(FText::GetEmpty());
	}
	FName GetTag() const
	{
		return Tag;
	}
	void SetTag(FName InTag)
	{
		Tag = InTag;
	}

	/** Runs each frame while the widget is shown. */
	virtual void Tick(const FGeometry& AllottedGeometry, const double InCurrentTime, const float InDeltaTime)
	{
	}
	virtual FReply OnKeyDown(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent)
	{
		return FReply::Unhandled();
	}
	virtual FReply OnKeyUp(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent)
	{
		return FReply::Unhandled();
	}
	virtual FReply OnKeyChar(const FGeometry& MyGeometry, const FCharacterEvent& InCharacterEvent)
	{
		return FReply::Unhandled();
	}
	virtual bool SupportsKeyboardFocus() const
	{
		return false;
	}
	SLATECORE_API virtual bool HasKeyboardFocus() const;
	SLATECORE_API bool HasFocusedDescendants() const;

	virtual FChildren* GetChildren() = 0;

	SLATECORE_API TSharedPtr<SWidget> GetParentWidget() const;
	bool IsParentValid() const
	{
		return ParentWidget != nullptr;
	}
	/** Set by the slot that holds the widget; a widget has one parent at a time. */
	SLATECORE_API void AssignParentWidget(TSharedPtr<SWidget> InParent);
	SLATECORE_API bool ConditionallyDetatchParentWidget(SWidget* InExpectedParent);

	SLATECORE_API TSharedRef<FActiveTimerHandle> RegisterActiveTimer(float TickPeriod, FWidgetActiveTimerDelegate TickFunction);
	SLATECORE_API void UnRegisterActiveTimer(const TSharedRef<FActiveTimerHandle>& ActiveTimerHandle);
	bool HasActiveTimers() const
	{
		return ActiveTimers.Num() > 0;
	}

	SLATECORE_API void Invalidate(EInvalidateWidgetReason InvalidateReason);
	void ForceVolatile(bool bForce)
	{
		bForceVolatile = bForce;
	}
	bool IsVolatile() const
	{
		return bForceVolatile;
	}

	FName GetType() const
	{
		return TypeOfWidget;
	}
	FString GetTypeAsString() const
	{
		return TypeOfWidget.ToString();
	}
	SLATECORE_API virtual FString ToString() const;
	const FGeometry& GetCachedGeometry() const
	{
		return CachedGeometry;
	}
	const FGeometry& GetTickSpaceGeometry() const
	{
		return CachedGeometry;
	}

	// ---- Stand-in only: what the host's page and the tests use to see and drive the tree ----------------

	/** The declarative syntax names the widget by its class. */
	void SetStandInType(FName InType)
	{
		TypeOfWidget = InType;
	}
	/** Unique for the program's run; the page names widgets by it. */
	uint64 GetStandInId() const
	{
		return StandInId;
	}
	/** How often the widget was invalidated, by any reason. */
	int32 GetStandInInvalidationCount() const
	{
		return InvalidationCount;
	}
	/** Runs the timers that are due; those that stop or were unregistered are dropped. */
	SLATECORE_API void StandInRunActiveTimers(double CurrentTime);
	void StandInSetGeometry(const FGeometry& InGeometry)
	{
		CachedGeometry = InGeometry;
	}
	/** Writes what the page needs to draw the widget itself (not its children). */
	SLATECORE_API virtual void DescribeForStandIn(FJsonObject& Out) const;

protected:
	TAttribute<bool> EnabledState;
	TAttribute<EVisibility> VisibilityAttribute;
	TAttribute<FText> ToolTipText;
	float RenderOpacity = 1.0f;
	bool bForceVolatile = false;
	FName Tag;

private:
	FName TypeOfWidget;
	uint64 StandInId;
	int32 InvalidationCount = 0;
	SWidget* ParentWidget = nullptr;
	TWeakPtr<SWidget> ParentWidgetWeak;
	TArray<TSharedRef<FActiveTimerHandle>> ActiveTimers;
	FGeometry CachedGeometry;
};
