#include "SlateStandInDescription.h"

namespace SlateStandInDescription
{
	TSharedPtr<FJsonValue> Color(const FLinearColor& InColor)
	{
		return MakeShared<FJsonValueArray>(TArray<TSharedPtr<FJsonValue>>{
			MakeShared<FJsonValueNumber>(InColor.R), MakeShared<FJsonValueNumber>(InColor.G), MakeShared<FJsonValueNumber>(InColor.B),
			MakeShared<FJsonValueNumber>(InColor.A)});
	}

	TSharedPtr<FJsonValue> SlateColor(const FSlateColor& InColor)
	{
		if (InColor.IsColorSpecified())
		{
			return Color(InColor.GetSpecifiedColor());
		}
		TSharedRef<FJsonObject> Foreground = MakeShared<FJsonObject>();
		Foreground->SetNumberField(TEXT("foreground"), InColor.GetColorUseRule() == ESlateColorStylingMode::UseColor_Foreground_Subdued ? 0.5 : 1.0);
		return MakeShared<FJsonValueObject>(Foreground);
	}

	TSharedPtr<FJsonValue> Margin(const FMargin& InMargin)
	{
		return MakeShared<FJsonValueArray>(TArray<TSharedPtr<FJsonValue>>{MakeShared<FJsonValueNumber>(InMargin.Left),
			MakeShared<FJsonValueNumber>(InMargin.Top), MakeShared<FJsonValueNumber>(InMargin.Right), MakeShared<FJsonValueNumber>(InMargin.Bottom)});
	}

	TSharedPtr<FJsonValue> Font(const FSlateFontInfo& InFont)
	{
		TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
		Object->SetStringField(TEXT("typeface"), InFont.TypefaceFontName.IsNone() ? FString(TEXT("Regular")) : InFont.TypefaceFontName.ToString());
		Object->SetNumberField(TEXT("size"), InFont.Size);
		if (InFont.OutlineSettings.OutlineSize > 0)
		{
			Object->SetNumberField(TEXT("outline"), InFont.OutlineSettings.OutlineSize);
			Object->SetField(TEXT("outlineColor"), Color(InFont.OutlineSettings.OutlineColor));
		}
		return MakeShared<FJsonValueObject>(Object);
	}

	TSharedPtr<FJsonValue> Brush(const FSlateBrush* InBrush)
	{
		if (!InBrush || InBrush->DrawAs == ESlateBrushDrawType::NoDrawType)
		{
			return MakeShared<FJsonValueNull>();
		}
		TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
		Object->SetField(TEXT("tint"), SlateColor(InBrush->TintColor));
		if (!InBrush->GetResourceName().IsNone())
		{
			Object->SetStringField(TEXT("image"), ImageUrl(InBrush->GetResourceName()));
			Object->SetNumberField(TEXT("width"), InBrush->ImageSize.X);
			Object->SetNumberField(TEXT("height"), InBrush->ImageSize.Y);
		}
		if (InBrush->DrawAs == ESlateBrushDrawType::RoundedBox)
		{
			Object->SetNumberField(TEXT("radius"), InBrush->CornerRadius);
		}
		return MakeShared<FJsonValueObject>(Object);
	}

	FString ImageUrl(const FName ResourceName)
	{
		FString Path = ResourceName.ToString();
		FString Escaped;
		for (const TCHAR Char : Path)
		{
			const bool bPlain = (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z') || (Char >= '0' && Char <= '9') || Char == '/' || Char == '.'
				|| Char == '-' || Char == '_';
			if (bPlain)
			{
				Escaped.AppendChars(&Char, 1);
			}
			else if (Char < 0x80)
			{
				Escaped += FString::Printf(TEXT("%%%02X"), static_cast<unsigned>(Char));
			}
			else
			{
				Escaped.AppendChars(&Char, 1);
			}
		}
		return FString(TEXT("/image?path=")) + Escaped;
	}
}
