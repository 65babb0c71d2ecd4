// FSlateStyleSet: a style set that owns what is put into it.
#pragma once

#include "CoreMinimal.h"
#include "Styling/ISlateStyle.h"
#include "Styling/SlateTypes.h"

#include <type_traits>

class FSlateStyleSet : public ISlateStyle
{
public:
	SLATECORE_API explicit FSlateStyleSet(const FName& InStyleSetName);
	SLATECORE_API virtual ~FSlateStyleSet();

	virtual const FName& GetStyleSetName() const override
	{
		return StyleSetName;
	}
	virtual FString GetContentRootDir() const override
	{
		return ContentRootDir;
	}
	virtual void SetContentRoot(const FString& InContentRootDir)
	{
		ContentRootDir = InContentRootDir;
	}
	virtual void SetCoreContentRoot(const FString& InCoreContentRootDir)
	{
		CoreContentRootDir = InCoreContentRootDir;
	}

	SLATECORE_API FString RootToContentDir(const ANSICHAR* RelativePath, const TCHAR* Extension);
	SLATECORE_API FString RootToContentDir(const TCHAR* RelativePath, const TCHAR* Extension);
	SLATECORE_API FString RootToContentDir(const FString& RelativePath, const TCHAR* Extension);
	SLATECORE_API FString RootToContentDir(const ANSICHAR* RelativePath);
	SLATECORE_API FString RootToContentDir(const TCHAR* RelativePath);
	SLATECORE_API FString RootToContentDir(const FString& RelativePath);
	SLATECORE_API FString RootToCoreContentDir(const ANSICHAR* RelativePath, const TCHAR* Extension);
	SLATECORE_API FString RootToCoreContentDir(const FString& RelativePath, const TCHAR* Extension);
	SLATECORE_API FString RootToCoreContentDir(const FString& RelativePath);

	/** Takes ownership of the brush: `Set("Name", new FSlateColorBrush(...))`. */
	template<typename BrushType>
		requires(std::is_base_of_v<FSlateBrush, BrushType>)
	void Set(const FName PropertyName, BrushType* InBrush)
	{
		SetBrush(PropertyName, InBrush);
	}
	SLATECORE_API void Set(const FName PropertyName, const float InFloat);
	SLATECORE_API void Set(const FName PropertyName, const FVector2D InVector);
	SLATECORE_API void Set(const FName PropertyName, const FLinearColor& InColor);
	SLATECORE_API void Set(const FName PropertyName, const FColor& InColor);
	SLATECORE_API void Set(const FName PropertyName, const FSlateColor& InColor);
	SLATECORE_API void Set(const FName PropertyName, const FMargin& InMargin);
	SLATECORE_API void Set(const FName PropertyName, const FSlateFontInfo& InFontInfo);
	template<typename DefinitionType>
		requires(std::is_base_of_v<FSlateWidgetStyle, DefinitionType>)
	void Set(const FName PropertyName, const DefinitionType& InStyleDefinition)
	{
		SetWidgetStyle(PropertyName, MakeShared<DefinitionType>(InStyleDefinition));
	}

	SLATECORE_API virtual const FSlateBrush* GetBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual const FSlateBrush* GetOptionalBrush(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FSlateBrush* const DefaultBrush = nullptr) const override;
	SLATECORE_API virtual const FSlateBrush* GetDefaultBrush() const override;
	SLATECORE_API virtual const FSlateBrush* GetNoBrush() const override;
	SLATECORE_API virtual const FLinearColor& GetColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FLinearColor& DefaultValue = FLinearColor::White, const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual const FSlateColor GetSlateColor(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FSlateColor& DefaultValue = FSlateColor(FLinearColor::White), const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual float GetFloat(const FName PropertyName, const ANSICHAR* Specifier = nullptr, float DefaultValue = 0.0f, const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual FVector2D GetVector(const FName PropertyName, const ANSICHAR* Specifier = nullptr, FVector2D DefaultValue = FVector2D(0.0, 0.0), const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual const FMargin& GetMargin(const FName PropertyName, const ANSICHAR* Specifier = nullptr, const FMargin& DefaultValue = FMargin(), const ISlateStyle* RequestingStyle = nullptr) const override;
	SLATECORE_API virtual FSlateFontInfo GetFontStyle(const FName PropertyName, const ANSICHAR* Specifier = nullptr) const override;

	/** Stand-in only: every brush of the set, by name (the page serves the images they name). */
	SLATECORE_API void ForEachBrush(TFunctionRef<void(FName, const FSlateBrush&)> Visitor) const;

protected:
	SLATECORE_API void SetBrush(const FName PropertyName, FSlateBrush* InBrush);
	SLATECORE_API void SetWidgetStyle(const FName PropertyName, TSharedRef<FSlateWidgetStyle> InStyle);
	SLATECORE_API virtual const FSlateWidgetStyle* GetWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName, const ISlateStyle* RequestingStyle) const override;
	SLATECORE_API virtual const FSlateWidgetStyle* FindWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName) const override;

	FName StyleSetName;
	FString ContentRootDir;
	FString CoreContentRootDir;
	TMap<FName, TSharedPtr<FSlateBrush>> BrushResources;
	TMap<FName, TSharedPtr<FSlateWidgetStyle>> WidgetStyleValues;
	TMap<FName, float> FloatValues;
	TMap<FName, FVector2D> Vector2DValues;
	TMap<FName, FLinearColor> ColorValues;
	TMap<FName, FSlateColor> SlateColorValues;
	TMap<FName, FMargin> MarginValues;
	TMap<FName, FSlateFontInfo> FontInfoResources;
	FSlateBrush* DefaultBrush;
	FSlateBrush* NoBrush;
};
