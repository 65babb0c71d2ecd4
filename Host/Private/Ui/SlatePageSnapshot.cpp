#include "Ui/SlatePageSnapshot.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Framework/Application/SlateApplication.h"
#include "Layout/Children.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "SlateStandInDescription.h"
#include "ToolMenus.h"

namespace
{
	const TCHAR* VisibilityName(const EVisibility& Visibility)
	{
		if (Visibility == EVisibility::Collapsed)
		{
			return TEXT("collapsed");
		}
		return Visibility == EVisibility::Hidden ? TEXT("hidden") : TEXT("visible");
	}

	// Image URLs carry the file path after this prefix, percent-escaped.
	FString ImagePathFromUrl(const FString& Url)
	{
		const FString Prefix = TEXT("/image?path=");
		if (!Url.StartsWith(Prefix))
		{
			return FString();
		}
		FString Encoded = Url.Mid(Prefix.Len());
		FString Decoded;
		for (int32 Index = 0; Index < Encoded.Len(); ++Index)
		{
			if (Encoded[Index] == '%' && Index + 2 < Encoded.Len())
			{
				const TCHAR Hex[3] = {Encoded[Index + 1], Encoded[Index + 2], 0};
				const TCHAR Char = static_cast<TCHAR>(FCString::Strtoi(Hex, nullptr, 16));
				Decoded.AppendChars(&Char, 1);
				Index += 2;
			}
			else
			{
				Decoded.AppendChars(&Encoded[Index], 1);
			}
		}
		return Decoded;
	}
}

FString FSlatePageSnapshot::Build(int64 Ack)
{
	Widgets.Empty();
	ImageFiles.Empty();
	TSharedRef<FJsonObject> Frame = MakeShared<FJsonObject>();
	Frame->SetNumberField(TEXT("ack"), static_cast<double>(Ack));
	TArray<TSharedPtr<FJsonValue>> Roots;
	for (const TSharedRef<SWidget>& Root : FSlateApplication::Get().GetStandInRoots())
	{
		Roots.Add(MakeShared<FJsonValueObject>(DescribeWidget(Root, true)));
	}
	Frame->SetArrayField(TEXT("roots"), Roots);
	Frame->SetObjectField(TEXT("menus"), DescribeMenus());
	TSharedPtr<SWidget> Focused = FSlateApplication::Get().GetKeyboardFocusedWidget();
	Frame->SetNumberField(TEXT("focus"), Focused.IsValid() ? static_cast<double>(Focused->GetStandInId()) : 0.0);

	FString Text;
	TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	FJsonSerializer::Serialize(Frame, Writer);
	return Text;
}

TSharedRef<FJsonObject> FSlatePageSnapshot::DescribeWidget(const TSharedRef<SWidget>& Widget, bool bParentEnabled)
{
	TSharedRef<FJsonObject> Node = MakeShared<FJsonObject>();
	Widget->DescribeForStandIn(*Node);
	NoteImages(*Node);
	const uint64 Id = Widget->GetStandInId();
	Widgets.Add(Id, Widget);
	Node->SetNumberField(TEXT("id"), static_cast<double>(Id));
	Node->SetStringField(TEXT("type"), Widget->GetTypeAsString());
	const EVisibility Visibility = Widget->GetVisibility();
	Node->SetStringField(TEXT("visibility"), VisibilityName(Visibility));
	const bool bEnabled = bParentEnabled && Widget->IsEnabled();
	Node->SetBoolField(TEXT("enabled"), bEnabled);
	if (Widget->GetRenderOpacity() != 1.0f)
	{
		Node->SetNumberField(TEXT("opacity"), Widget->GetRenderOpacity());
	}
	const FText ToolTip = Widget->GetToolTipText();
	if (!ToolTip.IsEmpty())
	{
		Node->SetStringField(TEXT("tooltip"), ToolTip.ToString());
	}
	// A collapsed widget shows nothing below it: its children are left out.
	if (Visibility == EVisibility::Collapsed)
	{
		return Node;
	}
	TArray<TSharedPtr<FJsonValue>> Children;
	if (FChildren* WidgetChildren = Widget->GetChildren())
	{
		for (int32 Index = 0; Index < WidgetChildren->Num(); ++Index)
		{
			TSharedRef<FJsonObject> Child = MakeShared<FJsonObject>();
			TSharedRef<FJsonObject> Slot = MakeShared<FJsonObject>();
			if (const FSlotBase* SlotBase = WidgetChildren->GetSlotAt(Index))
			{
				SlotBase->DescribeForStandIn(*Slot);
			}
			Child->SetObjectField(TEXT("slot"), Slot);
			Child->SetObjectField(TEXT("widget"), DescribeWidget(WidgetChildren->GetChildAt(Index), bEnabled));
			Children.Add(MakeShared<FJsonValueObject>(Child));
		}
	}
	Node->SetArrayField(TEXT("children"), Children);
	return Node;
}

void FSlatePageSnapshot::NoteImages(const FJsonObject& Object)
{
	for (const TPair<FString, TSharedPtr<FJsonValue>>& Field : Object.Values)
	{
		const TSharedPtr<FJsonObject>* Brush = nullptr;
		FString Url;
		if (Field.Value.IsValid() && Field.Value->TryGetObject(Brush) && Brush && (*Brush)->TryGetStringField(TEXT("image"), Url))
		{
			const FString Path = ImagePathFromUrl(Url);
			if (!Path.IsEmpty())
			{
				ImageFiles.Add(Path);
			}
		}
	}
}

TSharedRef<FJsonObject> FSlatePageSnapshot::DescribeMenus()
{
	MenuEntries.Empty();
	TSharedRef<FJsonObject> Menus = MakeShared<FJsonObject>();
	TArray<UToolMenu*> AllMenus = UToolMenus::Get()->GetStandInMenus();
	for (int32 MenuIndex = 0; MenuIndex < AllMenus.Num(); ++MenuIndex)
	{
		UToolMenu* Menu = AllMenus[MenuIndex];
		TArray<TSharedPtr<FJsonValue>> Entries;
		for (int32 SectionIndex = 0; SectionIndex < Menu->NumSections(); ++SectionIndex)
		{
			FToolMenuSection& Section = Menu->GetSection(SectionIndex);
			for (int32 EntryIndex = 0; EntryIndex < Section.NumEntries(); ++EntryIndex)
			{
				const FToolMenuEntry& Entry = Section.GetEntry(EntryIndex);
				if (Entry.Type == EMultiBlockType::Separator || Entry.Type == EMultiBlockType::ToolBarSeparator)
				{
					continue;
				}
				const FString Id = FString::Printf(TEXT("%d.%d.%d"), MenuIndex, SectionIndex, EntryIndex);
				MenuEntries.Add(Id, const_cast<FToolMenuEntry*>(&Entry));
				TSharedRef<FJsonObject> Item = MakeShared<FJsonObject>();
				Item->SetStringField(TEXT("id"), Id);
				Item->SetStringField(TEXT("label"), Entry.GetDisplayLabel().ToString());
				Item->SetStringField(TEXT("tooltip"), Entry.GetDisplayToolTip().ToString());
				const FSlateIcon Icon = Entry.GetDisplayIcon();
				if (Icon.IsSet())
				{
					TSharedPtr<FJsonValue> Brush = SlateStandInDescription::Brush(Icon.GetOptionalIcon());
					Item->SetField(TEXT("icon"), Brush);
					NoteImages(*Item);
				}
				Entries.Add(MakeShared<FJsonValueObject>(Item));
			}
		}
		if (Entries.Num() > 0)
		{
			Menus->SetArrayField(Menu->GetMenuName().ToString(), Entries);
		}
	}
	return Menus;
}

TSharedPtr<SWidget> FSlatePageSnapshot::FindWidget(uint64 Id) const
{
	const TWeakPtr<SWidget>* Found = Widgets.Find(Id);
	return Found ? Found->Pin() : nullptr;
}

const FToolMenuEntry* FSlatePageSnapshot::FindMenuEntry(const FString& Id) const
{
	FToolMenuEntry* const* Found = MenuEntries.Find(Id);
	return Found ? *Found : nullptr;
}
