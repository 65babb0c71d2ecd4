#pragma once

#include "CoreMinimal.h"
#include "Framework/Docking/TabManager.h"
#include "Widgets/Layout/SBorder.h"

enum ETabRole : uint8
{
	MajorTab,
	PanelTab,
	NomadTab,
	DocumentTab,
	NumRoles
};

/** A tab: a label and the content it shows. Tabs are made by spawners of the tab manager. */
class SDockTab : public SBorder
{
public:
	DECLARE_DELEGATE_OneParam(FOnTabClosedCallback, TSharedRef<SDockTab>);
	DECLARE_DELEGATE_RetVal(bool, FCanCloseTab);
	DECLARE_DELEGATE_OneParam(FOnTabActivatedCallback, TSharedRef<SDockTab>);

	SLATE_BEGIN_ARGS(SDockTab)
		: _Content()
		, _ContentPadding(FMargin(0.0f))
		, _TabRole(ETabRole::PanelTab)
		, _Label()
		, _Icon(nullptr)
		, _ShouldAutosize(false)
		, _CanEverClose(true)
		{}
		SLATE_DEFAULT_SLOT(FArguments, Content)
		SLATE_ATTRIBUTE(FMargin, ContentPadding)
		SLATE_ARGUMENT(ETabRole, TabRole)
		SLATE_ATTRIBUTE(FText, Label)
		SLATE_ARGUMENT(const FSlateBrush*, Icon)
		SLATE_EVENT(FOnTabClosedCallback, OnTabClosed)
		SLATE_EVENT(FOnTabActivatedCallback, OnTabActivated)
		SLATE_ARGUMENT(bool, ShouldAutosize)
		SLATE_EVENT(FCanCloseTab, OnCanCloseTab)
		SLATE_ARGUMENT(bool, CanEverClose)
		SLATE_ATTRIBUTE(FSlateColor, TabColorScale)
		SLATE_ATTRIBUTE(FSlateColor, ForegroundColor)
		SLATE_ATTRIBUTE(FSlateColor, IconColor)
	SLATE_END_ARGS()

	SLATE_API SDockTab();
	SLATE_API void Construct(const FArguments& InArgs);

	ETabRole GetTabRole() const
	{
		return TabRole;
	}
	ETabRole GetVisualTabRole() const
	{
		return TabRole;
	}
	FText GetTabLabel() const
	{
		return TabLabel.Get(FText::GetEmpty());
	}
	void SetLabel(const TAttribute<FText>& InTabLabel)
	{
		TabLabel = InTabLabel;
	}
	const FSlateBrush* GetTabIcon() const
	{
		return TabIcon;
	}
	void SetTabIcon(const FSlateBrush* InTabIcon)
	{
		TabIcon = InTabIcon;
	}
	void SetCanCloseTab(const FCanCloseTab& InOnTabClosing)
	{
		OnCanCloseTab = InOnTabClosing;
	}
	void SetOnTabClosed(const FOnTabClosedCallback& InDelegate)
	{
		OnTabClosed = InDelegate;
	}
	void SetShouldAutosize(const bool bNewShouldAutosize)
	{
		bShouldAutosize = bNewShouldAutosize;
	}
	bool ShouldAutosize() const
	{
		return bShouldAutosize;
	}
	/** Closes the tab unless its can-close handler refuses; gives whether it closed. */
	SLATE_API bool RequestCloseTab();
	/** Closes the tab whatever its handler says, as the editor does when it shuts down. */
	SLATE_API void StandInForceCloseTab();
	SLATE_API bool CanCloseTab() const;
	bool IsForeground() const
	{
		return bIsOpen;
	}
	bool IsActive() const
	{
		return bIsOpen;
	}
	/** Draws attention to the tab; the stand-in counts the flashes. */
	void FlashTab()
	{
		++FlashCount;
	}
	void ActivateInParent(ETabActivationCause InActivationCause)
	{
		FlashTab();
	}
	void DrawAttention()
	{
		FlashTab();
	}
	const FTabId& GetLayoutIdentifier() const
	{
		return TabId;
	}

	// ---- Stand-in only ----------------------------------------------------------------------------------
	int32 GetStandInFlashCount() const
	{
		return FlashCount;
	}
	void StandInSetLayoutIdentifier(const FTabId& InTabId)
	{
		TabId = InTabId;
	}
	void StandInMarkOpen(bool bInOpen)
	{
		bIsOpen = bInOpen;
	}
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	ETabRole TabRole = ETabRole::PanelTab;
	TAttribute<FText> TabLabel;
	const FSlateBrush* TabIcon = nullptr;
	FOnTabClosedCallback OnTabClosed;
	FCanCloseTab OnCanCloseTab;
	bool bCanEverClose = true;
	bool bShouldAutosize = false;
	bool bIsOpen = false;
	int32 FlashCount = 0;
	FTabId TabId;
};
