// Style sets, the registry, the core and application styles, and the widget styles' defaults.
#include "Brushes/SlateColorBrush.h"
#include "Styling/AppStyle.h"
#include "Styling/CoreStyle.h"
#include "Styling/SlateStyle.h"
#include "Styling/SlateStyleRegistry.h"
#include "Styling/SlateTypes.h"
#include "Textures/SlateIcon.h"

DEFINE_LOG_CATEGORY_STATIC(LogSlateStyle, Log, All);

const FName FTextBlockStyle::TypeName(TEXT("FTextBlockStyle"));
const FName FButtonStyle::TypeName(TEXT("FButtonStyle"));
const FName FEditableTextBoxStyle::TypeName(TEXT("FEditableTextBoxStyle"));
const FName FComboBoxStyle::TypeName(TEXT("FComboBoxStyle"));

namespace
{
	// The editor's dark theme, in linear colour: panels, recessed areas, text.
	const FLinearColor PanelColor(0.0176f, 0.0176f, 0.0176f, 1.0f);
	const FLinearColor RecessedColor(0.0075f, 0.0075f, 0.0075f, 1.0f);
	const FLinearColor HoverColor(0.09f, 0.09f, 0.09f, 1.0f);
	const FLinearColor ThemeForegroundColor(0.527f, 0.527f, 0.527f, 1.0f);
	const FLinearColor SubduedColor(0.3f, 0.3f, 0.3f, 1.0f);

	FTextBlockStyle MakeTextStyle(const TCHAR* Typeface, float Size, const FLinearColor& Color)
	{
		FTextBlockStyle Style;
		Style.SetFont(FCoreStyle::GetDefaultFontStyle(Typeface, Size)).SetColorAndOpacity(Color);
		return Style;
	}

	FButtonStyle MakeButtonStyle()
	{
		FButtonStyle Style;
		Style.SetNormal(FSlateColorBrush(FLinearColor(0.035f, 0.035f, 0.035f, 1.0f)))
			.SetHovered(FSlateColorBrush(HoverColor))
			.SetPressed(FSlateColorBrush(RecessedColor))
			.SetDisabled(FSlateColorBrush(FLinearColor(0.02f, 0.02f, 0.02f, 0.5f)))
			.SetNormalPadding(FMargin(4.0f, 2.0f))
			.SetPressedPadding(FMargin(4.0f, 3.0f, 4.0f, 1.0f));
		return Style;
	}

	TMap<FName, const ISlateStyle*>& RegisteredStyles()
	{
		static TMap<FName, const ISlateStyle*> Styles;
		return Styles;
	}

	FName& AppStyleSetName()
	{
		static FName Name(TEXT("EditorStyle"));
		return Name;
	}
}

// ---- Widget style defaults -------------------------------------------------------------------------------

const FTextBlockStyle& FTextBlockStyle::GetDefault()
{
	static const FTextBlockStyle Default = MakeTextStyle(TEXT("Regular"), 10.0f, FLinearColor::White);
	return Default;
}

const FButtonStyle& FButtonStyle::GetDefault()
{
	static const FButtonStyle Default = MakeButtonStyle();
	return Default;
}

const FEditableTextBoxStyle& FEditableTextBoxStyle::GetDefault()
{
	static const FEditableTextBoxStyle Default = []
	{
		FEditableTextBoxStyle Style;
		Style.SetBackgroundImageNormal(FSlateColorBrush(RecessedColor))
			.SetBackgroundImageHovered(FSlateColorBrush(RecessedColor))
			.SetBackgroundImageFocused(FSlateColorBrush(RecessedColor))
			.SetBackgroundImageReadOnly(FSlateColorBrush(RecessedColor))
			.SetTextStyle(MakeTextStyle(TEXT("Regular"), 10.0f, ThemeForegroundColor));
		return Style;
	}();
	return Default;
}

const FComboBoxStyle& FComboBoxStyle::GetDefault()
{
	static const FComboBoxStyle Default = []
	{
		FComboBoxStyle Style;
		Style.ButtonStyle = MakeButtonStyle();
		return Style;
	}();
	return Default;
}

// ---- FSlateStyleSet --------------------------------------------------------------------------------------

FSlateStyleSet::FSlateStyleSet(const FName& InStyleSetName)
	: StyleSetName(InStyleSetName)
	, DefaultBrush(new FSlateColorBrush(FLinearColor(1.0f, 0.0f, 1.0f, 1.0f)))
	, NoBrush(new FSlateNoResource())
{
}

FSlateStyleSet::~FSlateStyleSet()
{
	delete DefaultBrush;
	delete NoBrush;
}

FString FSlateStyleSet::RootToContentDir(const ANSICHAR* RelativePath, const TCHAR* Extension)
{
	return ContentRootDir / FString(RelativePath) + Extension;
}

FString FSlateStyleSet::RootToContentDir(const TCHAR* RelativePath, const TCHAR* Extension)
{
	return ContentRootDir / FString(RelativePath) + Extension;
}

FString FSlateStyleSet::RootToContentDir(const FString& RelativePath, const TCHAR* Extension)
{
	return ContentRootDir / RelativePath + Extension;
}

FString FSlateStyleSet::RootToContentDir(const ANSICHAR* RelativePath)
{
	return ContentRootDir / FString(RelativePath);
}

FString FSlateStyleSet::RootToContentDir(const TCHAR* RelativePath)
{
	return ContentRootDir / FString(RelativePath);
}

FString FSlateStyleSet::RootToContentDir(const FString& RelativePath)
{
	return ContentRootDir / RelativePath;
}

FString FSlateStyleSet::RootToCoreContentDir(const ANSICHAR* RelativePath, const TCHAR* Extension)
{
	return CoreContentRootDir / FString(RelativePath) + Extension;
}

FString FSlateStyleSet::RootToCoreContentDir(const FString& RelativePath, const TCHAR* Extension)
{
	return CoreContentRootDir / RelativePath + Extension;
}

FString FSlateStyleSet::RootToCoreContentDir(const FString& RelativePath)
{
	return CoreContentRootDir / RelativePath;
}

void FSlateStyleSet::SetBrush(const FName PropertyName, FSlateBrush* InBrush)
{
	BrushResources.Add(PropertyName, TSharedPtr<FSlateBrush>(InBrush));
}

void FSlateStyleSet::SetWidgetStyle(const FName PropertyName, TSharedRef<FSlateWidgetStyle> InStyle)
{
	WidgetStyleValues.Add(PropertyName, InStyle);
}

void FSlateStyleSet::Set(const FName PropertyName, const float InFloat)
{
	FloatValues.Add(PropertyName, InFloat);
}

void FSlateStyleSet::Set(const FName PropertyName, const FVector2D InVector)
{
	Vector2DValues.Add(PropertyName, InVector);
}

void FSlateStyleSet::Set(const FName PropertyName, const FLinearColor& InColor)
{
	ColorValues.Add(PropertyName, InColor);
}

void FSlateStyleSet::Set(const FName PropertyName, const FColor& InColor)
{
	ColorValues.Add(PropertyName, FLinearColor(InColor));
}

void FSlateStyleSet::Set(const FName PropertyName, const FSlateColor& InColor)
{
	SlateColorValues.Add(PropertyName, InColor);
}

void FSlateStyleSet::Set(const FName PropertyName, const FMargin& InMargin)
{
	MarginValues.Add(PropertyName, InMargin);
}

void FSlateStyleSet::Set(const FName PropertyName, const FSlateFontInfo& InFontInfo)
{
	FontInfoResources.Add(PropertyName, InFontInfo);
}

const FSlateBrush* FSlateStyleSet::GetBrush(const FName PropertyName, const ANSICHAR* Specifier, const ISlateStyle* RequestingStyle) const
{
	const FName Name = Join(PropertyName, Specifier);
	if (const TSharedPtr<FSlateBrush>* Found = BrushResources.Find(Name))
	{
		return Found->Get();
	}
	UE_LOG(LogSlateStyle, Warning, TEXT("Unable to find Slate brush '%s' in style set '%s'"), *Name.ToString(), *StyleSetName.ToString());
	return DefaultBrush;
}

const FSlateBrush* FSlateStyleSet::GetOptionalBrush(const FName PropertyName, const ANSICHAR* Specifier, const FSlateBrush* const InDefaultBrush) const
{
	if (const TSharedPtr<FSlateBrush>* Found = BrushResources.Find(Join(PropertyName, Specifier)))
	{
		return Found->Get();
	}
	return InDefaultBrush;
}

const FSlateBrush* FSlateStyleSet::GetDefaultBrush() const
{
	return DefaultBrush;
}

const FSlateBrush* FSlateStyleSet::GetNoBrush() const
{
	return NoBrush;
}

const FLinearColor& FSlateStyleSet::GetColor(const FName PropertyName, const ANSICHAR* Specifier, const FLinearColor& DefaultValue, const ISlateStyle* RequestingStyle) const
{
	const FLinearColor* Found = ColorValues.Find(Join(PropertyName, Specifier));
	return Found ? *Found : DefaultValue;
}

const FSlateColor FSlateStyleSet::GetSlateColor(const FName PropertyName, const ANSICHAR* Specifier, const FSlateColor& DefaultValue, const ISlateStyle* RequestingStyle) const
{
	const FName Name = Join(PropertyName, Specifier);
	if (const FSlateColor* Found = SlateColorValues.Find(Name))
	{
		return *Found;
	}
	const FLinearColor* FoundLinear = ColorValues.Find(Name);
	return FoundLinear ? FSlateColor(*FoundLinear) : DefaultValue;
}

float FSlateStyleSet::GetFloat(const FName PropertyName, const ANSICHAR* Specifier, float DefaultValue, const ISlateStyle* RequestingStyle) const
{
	const float* Found = FloatValues.Find(Join(PropertyName, Specifier));
	return Found ? *Found : DefaultValue;
}

FVector2D FSlateStyleSet::GetVector(const FName PropertyName, const ANSICHAR* Specifier, FVector2D DefaultValue, const ISlateStyle* RequestingStyle) const
{
	const FVector2D* Found = Vector2DValues.Find(Join(PropertyName, Specifier));
	return Found ? *Found : DefaultValue;
}

const FMargin& FSlateStyleSet::GetMargin(const FName PropertyName, const ANSICHAR* Specifier, const FMargin& DefaultValue, const ISlateStyle* RequestingStyle) const
{
	const FMargin* Found = MarginValues.Find(Join(PropertyName, Specifier));
	return Found ? *Found : DefaultValue;
}

FSlateFontInfo FSlateStyleSet::GetFontStyle(const FName PropertyName, const ANSICHAR* Specifier) const
{
	const FSlateFontInfo* Found = FontInfoResources.Find(Join(PropertyName, Specifier));
	return Found ? *Found : FCoreStyle::GetDefaultFontStyle(TEXT("Regular"), 10.0f);
}

const FSlateWidgetStyle* FSlateStyleSet::FindWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName) const
{
	const TSharedPtr<FSlateWidgetStyle>* Found = WidgetStyleValues.Find(StyleName);
	return Found && (*Found)->GetTypeName() == DesiredTypeName ? Found->Get() : nullptr;
}

const FSlateWidgetStyle* FSlateStyleSet::GetWidgetStyleInternal(const FName DesiredTypeName, const FName StyleName, const ISlateStyle* RequestingStyle) const
{
	const FSlateWidgetStyle* Found = FindWidgetStyleInternal(DesiredTypeName, StyleName);
	if (!Found)
	{
		UE_LOG(LogSlateStyle, Warning, TEXT("Unable to find Slate widget style '%s' of type '%s' in style set '%s'"), *StyleName.ToString(),
			*DesiredTypeName.ToString(), *StyleSetName.ToString());
	}
	return Found;
}

void FSlateStyleSet::ForEachBrush(TFunctionRef<void(FName, const FSlateBrush&)> Visitor) const
{
	for (const TPair<FName, TSharedPtr<FSlateBrush>>& Pair : BrushResources)
	{
		Visitor(Pair.Key, *Pair.Value);
	}
}

// ---- Registry --------------------------------------------------------------------------------------------

void FSlateStyleRegistry::RegisterSlateStyle(const ISlateStyle& InSlateStyle)
{
	const FName Name = InSlateStyle.GetStyleSetName();
	if (RegisteredStyles().Contains(Name))
	{
		UE_LOG(LogSlateStyle, Warning, TEXT("A style set named '%s' is registered already"), *Name.ToString());
		return;
	}
	RegisteredStyles().Add(Name, &InSlateStyle);
}

void FSlateStyleRegistry::UnRegisterSlateStyle(const ISlateStyle& InSlateStyle)
{
	const FName Name = InSlateStyle.GetStyleSetName();
	const ISlateStyle* const* Found = RegisteredStyles().Find(Name);
	if (Found && *Found == &InSlateStyle)
	{
		RegisteredStyles().Remove(Name);
	}
}

void FSlateStyleRegistry::UnRegisterSlateStyle(const FName StyleSetName)
{
	RegisteredStyles().Remove(StyleSetName);
}

const ISlateStyle* FSlateStyleRegistry::FindSlateStyle(const FName& InSlateStyleName)
{
	const ISlateStyle* const* Found = RegisteredStyles().Find(InSlateStyleName);
	return Found ? *Found : nullptr;
}

bool FSlateStyleRegistry::IterateAllStyles(TFunctionRef<bool(const ISlateStyle&)> Iter)
{
	for (const TPair<FName, const ISlateStyle*>& Pair : RegisteredStyles())
	{
		if (!Iter(*Pair.Value))
		{
			return false;
		}
	}
	return true;
}

// ---- Core and application styles -------------------------------------------------------------------------

const ISlateStyle& FCoreStyle::Get()
{
	static FSlateStyleSet* const CoreStyle = []
	{
		FSlateStyleSet* Style = new FSlateStyleSet(GetCoreStyleSetName());
		Style->Set(TEXT("Border"), new FSlateColorBrush(RecessedColor));
		Style->Set(TEXT("NoBorder"), new FSlateNoResource());
		Style->Set(TEXT("WhiteBrush"), new FSlateColorBrush(FLinearColor::White));
		Style->Set(TEXT("GenericWhiteBox"), new FSlateColorBrush(FLinearColor::White));
		Style->Set(TEXT("Menu.Background"), new FSlateColorBrush(PanelColor));
		Style->Set(TEXT("ToolPanel.GroupBorder"), new FSlateColorBrush(PanelColor));
		Style->Set(TEXT("ToolPanel.DarkGroupBorder"), new FSlateColorBrush(RecessedColor));
		Style->Set(TEXT("Brushes.Panel"), new FSlateColorBrush(PanelColor));
		Style->Set(TEXT("Brushes.Recessed"), new FSlateColorBrush(RecessedColor));
		Style->Set(TEXT("Brushes.Foreground"), new FSlateColorBrush(ThemeForegroundColor));
		Style->Set(TEXT("NormalText"), MakeTextStyle(TEXT("Regular"), 10.0f, ThemeForegroundColor));
		Style->Set(TEXT("NormalText.Subdued"), MakeTextStyle(TEXT("Regular"), 10.0f, SubduedColor));
		Style->Set(TEXT("SmallText"), MakeTextStyle(TEXT("Regular"), 8.0f, ThemeForegroundColor));
		Style->Set(TEXT("BoldText"), MakeTextStyle(TEXT("Bold"), 10.0f, ThemeForegroundColor));
		Style->Set(TEXT("Button"), MakeButtonStyle());
		Style->Set(TEXT("NormalEditableTextBox"), FEditableTextBoxStyle::GetDefault());
		Style->Set(TEXT("ComboBox"), FComboBoxStyle::GetDefault());
		Style->Set(TEXT("NormalFont"), FCoreStyle::GetDefaultFontStyle(TEXT("Regular"), 10.0f));
		Style->Set(TEXT("Colors.Foreground"), ThemeForegroundColor);
		Style->Set(TEXT("Colors.Panel"), PanelColor);
		FSlateStyleRegistry::RegisterSlateStyle(*Style);
		return Style;
	}();
	return *CoreStyle;
}

FSlateFontInfo FCoreStyle::GetDefaultFontStyle(const FName InTypefaceFontName, const float InSize, const FFontOutlineSettings& InOutlineSettings)
{
	FSlateFontInfo Font;
	Font.TypefaceFontName = InTypefaceFontName;
	Font.Size = InSize;
	Font.OutlineSettings = InOutlineSettings;
	return Font;
}

const FName& FCoreStyle::GetCoreStyleSetName()
{
	static const FName Name(TEXT("CoreStyle"));
	return Name;
}

bool FCoreStyle::IsStarshipStyle()
{
	return true;
}

const ISlateStyle& FAppStyle::Get()
{
	const ISlateStyle* Found = FSlateStyleRegistry::FindSlateStyle(AppStyleSetName());
	return Found ? *Found : FCoreStyle::Get();
}

const FName FAppStyle::GetAppStyleSetName()
{
	return AppStyleSetName();
}

void FAppStyle::SetAppStyleSetName(const FName& InName)
{
	AppStyleSetName() = InName;
}

void FAppStyle::SetAppStyleSet(const ISlateStyle& InStyle)
{
	AppStyleSetName() = InStyle.GetStyleSetName();
}

// ---- Icons -----------------------------------------------------------------------------------------------

const ISlateStyle* FSlateIcon::GetStyleSet() const
{
	return FSlateStyleRegistry::FindSlateStyle(StyleSetName);
}

const FSlateBrush* FSlateIcon::GetIcon() const
{
	const ISlateStyle* Style = GetStyleSet();
	return Style ? Style->GetBrush(StyleName) : FCoreStyle::Get().GetDefaultBrush();
}

const FSlateBrush* FSlateIcon::GetSmallIcon() const
{
	const ISlateStyle* Style = GetStyleSet();
	if (!Style)
	{
		return FCoreStyle::Get().GetDefaultBrush();
	}
	const FSlateBrush* Small = Style->GetOptionalBrush(SmallStyleName);
	return Small ? Small : Style->GetBrush(StyleName);
}

const FSlateBrush* FSlateIcon::GetOptionalIcon() const
{
	const ISlateStyle* Style = GetStyleSet();
	return Style ? Style->GetOptionalBrush(StyleName) : nullptr;
}
