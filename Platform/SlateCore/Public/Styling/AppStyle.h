#pragma once

#include "CoreMinimal.h"
#include "Styling/ISlateStyle.h"

/** The application's style set (the editor's, in the editor); the core style when none is registered. */
class FAppStyle
{
public:
	static SLATECORE_API const ISlateStyle& Get();
	static SLATECORE_API const FName GetAppStyleSetName();
	static SLATECORE_API void SetAppStyleSetName(const FName& InName);
	static SLATECORE_API void SetAppStyleSet(const ISlateStyle& InStyle);

	static const FSlateBrush* GetBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetBrush(PropertyName, Specifier);
	}
	static const FSlateBrush* GetOptionalBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FSlateBrush* const DefaultBrush = nullptr)
	{
		return Get().GetOptionalBrush(PropertyName, Specifier, DefaultBrush);
	}
	static const FSlateBrush* GetDefaultBrush()
	{
		return Get().GetDefaultBrush();
	}
	static const FSlateBrush* GetNoBrush()
	{
		return Get().GetNoBrush();
	}
	static const FLinearColor& GetColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetColor(PropertyName, Specifier);
	}
	static const FSlateColor GetSlateColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetSlateColor(PropertyName, Specifier);
	}
	static float GetFloat(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetFloat(PropertyName, Specifier);
	}
	static const FMargin& GetMargin(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetMargin(PropertyName, Specifier);
	}
	static FSlateFontInfo GetFontStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetFontStyle(PropertyName, Specifier);
	}
	template<typename WidgetStyleType>
	static const WidgetStyleType& GetWidgetStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr)
	{
		return Get().GetWidgetStyle<WidgetStyleType>(PropertyName, Specifier);
	}
};
