#include "Widgets/SNullWidget.h"

#include "Dom/JsonObject.h"
#include "Widgets/SLeafWidget.h"

namespace
{
	class SNullWidgetContent : public SLeafWidget
	{
	public:
		virtual void SetVisibility(TAttribute<EVisibility> InVisibility) override
		{
			// Shared by every empty slot: nobody may show it.
		}
		virtual void DescribeForStandIn(FJsonObject& Out) const override
		{
			Out.SetStringField(TEXT("kind"), TEXT("null"));
		}
	};

	TSharedRef<SWidget> MakeNullWidget()
	{
		TSharedRef<SWidget> Widget = MakeShared<SNullWidgetContent>();
		Widget->SetStandInType(TEXT("SNullWidget"));
		Widget->SetVisibility(EVisibility::Collapsed);
		return Widget;
	}
}

TSharedRef<SWidget> SNullWidget::NullWidget = MakeNullWidget();
