#pragma once

#include "CoreMinimal.h"

/** Keeps a player's score over a match and the rank it earns. */
class FScoreKeeper
{
public:
	/** Adds points; negative points are ignored, a penalty goes through Penalize. */
	void AddPoints(int32 Points);
	/** Takes points away, never below zero. */
	void Penalize(int32 Points);
	void Reset();

	int32 GetScore() const
	{
		return Score;
	}
	int32 GetBestScore() const
	{
		return BestScore;
	}
	/** "Bronze", "Silver" or "Gold" by the current score. */
	FString GetRank() const;

private:
	int32 Score = 0;
	int32 BestScore = 0;
};
