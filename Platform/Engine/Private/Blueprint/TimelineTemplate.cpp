#include "Engine/TimelineTemplate.h"

const FString UTimelineTemplate::TemplatePostfix(TEXT("_Template"));

void FTTTrackBase::SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimeline)
{
	if (OwningTimeline != nullptr)
	{
		OwningTimeline->Modify();
	}
	TrackName = NewTrackName;
}

UTimelineTemplate::UTimelineTemplate(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bAutoPlay(false)
	, bLoop(false)
	, bReplicated(false)
	, bIgnoreTimeDilation(false)
{
}

bool UTimelineTemplate::IsNewTrackNameValid(const FName& InTrackName) const
{
	if (InTrackName.IsNone())
	{
		return false;
	}
	for (const FTTEventTrack& Track : EventTracks)
	{
		if (Track.GetTrackName() == InTrackName)
		{
			return false;
		}
	}
	for (const FTTFloatTrack& Track : FloatTracks)
	{
		if (Track.GetTrackName() == InTrackName)
		{
			return false;
		}
	}
	return true;
}

FName UTimelineTemplate::GetVariableName() const
{
	FString Name = GetName();
	Name.RemoveFromEnd(TemplatePostfix);
	return FName(*Name);
}
