// UTimelineTemplate: a timeline of a Blueprint: its length, flags and tracks of curves.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Components/TimelineComponent.h"
#include "Engine/Blueprint.h"
#include "TimelineTemplate.generated.h"

class UCurveFloat;
class UTimelineTemplate;

/** The base of a timeline's tracks: its name and display flags. */
USTRUCT()
struct ENGINE_API FTTTrackBase
{
	GENERATED_BODY()

	enum ETrackType
	{
		TT_Event,
		TT_FloatInterp,
		TT_VectorInterp,
		TT_LinearColorInterp,
	};

	UPROPERTY()
	bool bIsExternalCurve = false;

	UPROPERTY()
	bool bIsExpanded = true;

	UPROPERTY()
	bool bIsCurveViewSynchronized = true;

	FName GetTrackName() const
	{
		return TrackName;
	}
	virtual void SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimeline);

	virtual ~FTTTrackBase() = default;

protected:
	UPROPERTY()
	FName TrackName;
};

/** A track that drives a property. */
USTRUCT()
struct FTTPropertyTrack : public FTTTrackBase
{
	GENERATED_BODY()

	UPROPERTY()
	FName PropertyName;
};

/** A track of float values. */
USTRUCT()
struct FTTFloatTrack : public FTTPropertyTrack
{
	GENERATED_BODY()

	UPROPERTY()
	TObjectPtr<UCurveFloat> CurveFloat = nullptr;
};

/** A track of events at its keys' times. */
USTRUCT()
struct FTTEventTrack : public FTTTrackBase
{
	GENERATED_BODY()

	UPROPERTY()
	TObjectPtr<UCurveFloat> CurveKeys = nullptr;
};

/** A track in the timeline editor's list: its kind and index into the kind's array. */
struct FTTTrackId
{
	FTTTrackId() = default;
	FTTTrackId(int32 InType, int32 InIndex)
		: TrackType(InType)
		, TrackIndex(InIndex)
	{
	}
	int32 TrackType = 0;
	int32 TrackIndex = 0;
};

UCLASS()
class ENGINE_API UTimelineTemplate : public UObject
{
	GENERATED_BODY()

public:
	UTimelineTemplate(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	float TimelineLength = 5.0f;

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	TEnumAsByte<ETimelineLengthMode> LengthMode = TL_TimelineLength;

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	uint8 bAutoPlay : 1;

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	uint8 bLoop : 1;

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	uint8 bReplicated : 1;

	UPROPERTY(EditAnywhere, Category = TimelineTemplate)
	uint8 bIgnoreTimeDilation : 1;

	UPROPERTY()
	TArray<FTTEventTrack> EventTracks;

	UPROPERTY()
	TArray<FTTFloatTrack> FloatTracks;

	UPROPERTY()
	TArray<FBPVariableMetaDataEntry> MetaDataArray;

	UPROPERTY()
	FGuid TimelineGuid;

	void AddDisplayTrack(FTTTrackId InTrack)
	{
		DisplayTracks.Add(InTrack);
	}
	int32 GetNumDisplayTracks() const
	{
		return DisplayTracks.Num();
	}
	// Whether no track of the timeline has the name yet.
	bool IsNewTrackNameValid(const FName& InTrackName) const;
	// The variable name of the timeline ("Timeline_0" for the template "Timeline_0_Template").
	FName GetVariableName() const;

	static const FString TemplatePostfix;

private:
	TArray<FTTTrackId> DisplayTracks;
};
