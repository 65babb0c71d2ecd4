#include "ScoreKeeper.h"

#include "SampleProject.h"

namespace
{
	constexpr int32 SilverScore = 100;
	constexpr int32 GoldScore = 250;
}

void FScoreKeeper::AddPoints(int32 Points)
{
	if (Points <= 0)
	{
		return;
	}
	Score += Points;
	BestScore = FMath::Max(BestScore, Score);
	UE_LOG(LogSampleProject, Verbose, TEXT("Score is now %d"), Score);
}

void FScoreKeeper::Penalize(int32 Points)
{
	Score = FMath::Max(0, Score - FMath::Max(0, Points));
}

void FScoreKeeper::Reset()
{
	Score = 0;
}

FString FScoreKeeper::GetRank() const
{
	if (Score >= GoldScore)
	{
		return TEXT("Gold");
	}
	return Score >= SilverScore ? TEXT("Silver") : TEXT("Bronze");
}
