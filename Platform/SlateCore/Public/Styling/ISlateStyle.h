#pragma once

#include "CoreMinimal.h"
#include "Fonts/SlateFontInfo.h"
#include "Layout/Margin.h"
#include "Math/Vector2D.h"
#include "Styling/SlateBrush.h"
#include "Styling/SlateColor.h"
#include "Styling/SlateWidgetStyle.h"

#include <type_traits>

/**
 * A named set of styles. A name that the set lacks gives a default (a placeholder brush, a default widget
 * style) and a warning in the log, never null.
 */
class ISlateStyle
{
public:
	virtual ~ISlateStyle() = default;

	virtual const FName& GetStyleSetName() const = 0;
	virtual FString GetContentRootDir() const = 0;

	virtual const FSlateBrush* GetBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const ISlateStyle* RequestingStyle = nullptr) const = 0;
	/** Null-free as GetBrush, but gives DefaultBrush when the name is missing, without a warning. */
	virtual const FSlateBrush* GetOptionalBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FSlateBrush* const DefaultBrush = nullptr) const = 0;
	virtual const FSlateBrush* GetDefaultBrush() const = 0;
	virtual const FSlateBrush* GetNoBrush() const = 0;
	virtual const FLinearColor& GetColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FLinearColor& DefaultValue = FLinearColor::White, const ISlateStyle* RequestingStyle = nullptr) const = 0;
	virtual const FSlateColor GetSlateColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FSlateColor& DefaultValue = FSlateColor(FLinearColor::White), const ISlateStyle* RequestingStyle = nullptr) const = 0;
	virtual float GetFloat(const FName PropertyName, const ANSICHAR* Specifier = nullptr, float DefaultValue = 0.0f, const ISlateStyle* RequestingStyle = nullptr) const = 0;
	virtual FVector2D GetVector(const FName PropertyName, const ANSICHAR* Specifier = nullptr, FVector2D DefaultValue = FVector2D(0.0, 0.0), const ISlateStyle* RequestingStyle = nullptr) const = 0;
	virtual const FMargin& GetMargin(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FMargin& DefaultValue = FMargin(), const ISlateStyle* RequestingStyle = nullptr) const = 0;
	virtual FSlateFontInfo GetFontStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr) const = 0;

	template<typename WidgetStyleType>
	const WidgetStyleType& GetWidgetStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const ISlateStyle* RequestingStyle = nullptr) const
	{
		static_assert(std::is_base_of_v<FSlateWidgetStyle, WidgetStyleType>, "GetWidgetStyle takes a widget style type");
		const FSlateWidgetStyle* Found = GetWidgetStyleInternal(WidgetStyleType::TypeName, Join(PropertyName, Specifier), RequestingStyle);
		return Found ? static_cast<const WidgetStyleType&>(*Found) : WidgetStyleType::GetDefault();
	}
	template<typename WidgetStyleType>
	bool HasWidgetStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr) const
	{
		return FindWidgetStyleInternal(WidgetStyleType::TypeName, Join(PropertyName, Specifier)) != nullptr;
	}

	/** The name with the specifier appended, as the style keys are written. */
	static FName Join(FName Name, const ANSICHAR* Specifier)
	{
		return Specifier ? FName(*(Name.ToString() + FString(Specifier))) : Name;
	}

protected:
	/** The style of that name and type; null (after a warning) when missing or of another type. */
	virtual const FSlateWidgetStyle* GetWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName, const ISlateStyle* RequestingStyle) const = 0;
	virtual const FSlateWidgetStyle* FindWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName) const = 0;
};
