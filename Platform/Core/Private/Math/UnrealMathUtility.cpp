#include "Math/UnrealMathUtility.h"

#include <random>

namespace
{
	std::mt19937& RandomEngine()
	{
		thread_local std::mt19937 Engine(12345u);
		return Engine;
	}
}

void FMath::RandInit(int32 Seed)
{
	RandomEngine().seed(static_cast<uint32>(Seed));
}

int32 FMath::Rand()
{
	return static_cast<int32>(RandomEngine()() & 0x7fffffff);
}

float FMath::FRand()
{
	return std::uniform_real_distribution<float>(0.0f, 1.0f)(RandomEngine());
}
