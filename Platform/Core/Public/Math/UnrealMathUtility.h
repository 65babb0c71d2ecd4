#pragma once

#include "CoreTypes.h"
#include <cmath>
#include <type_traits>

#define UE_PI (3.1415926535897932f)
#define UE_DOUBLE_PI (3.141592653589793238462643383279502884197169399)
#define UE_SMALL_NUMBER (1.e-8f)
#define UE_KINDA_SMALL_NUMBER (1.e-4f)
#define UE_DOUBLE_SMALL_NUMBER (1.e-8)
#define UE_DOUBLE_KINDA_SMALL_NUMBER (1.e-4)
#define PI UE_PI
#define SMALL_NUMBER UE_SMALL_NUMBER
#define KINDA_SMALL_NUMBER UE_KINDA_SMALL_NUMBER

struct FMath
{
	template<typename A, typename B>
	static constexpr std::common_type_t<A, B> Max(A First, B Second)
	{
		return First >= Second ? First : Second;
	}
	template<typename A, typename B>
	static constexpr std::common_type_t<A, B> Min(A First, B Second)
	{
		return First <= Second ? First : Second;
	}
	template<typename T>
	static constexpr T Max3(T A, T B, T C)
	{
		return Max(Max(A, B), C);
	}
	template<typename T>
	static constexpr T Min3(T A, T B, T C)
	{
		return Min(Min(A, B), C);
	}
	template<typename T>
	static constexpr T Clamp(T X, T MinValue, T MaxValue)
	{
		return X < MinValue ? MinValue : (X < MaxValue ? X : MaxValue);
	}
	template<typename T>
	static constexpr T Abs(T A)
	{
		return A < T(0) ? -A : A;
	}
	template<typename T>
	static constexpr T Sign(T A)
	{
		return A > T(0) ? T(1) : (A < T(0) ? T(-1) : T(0));
	}
	template<typename T>
	static constexpr T Square(T A)
	{
		return A * A;
	}
	template<typename T, typename U>
	static constexpr T Lerp(const T& A, const T& B, const U& Alpha)
	{
		return static_cast<T>(A + Alpha * (B - A));
	}
	template<typename T>
	static constexpr bool IsPowerOfTwo(T Value)
	{
		return Value > 0 && (Value & (Value - 1)) == 0;
	}
	template<typename T>
	static constexpr T DivideAndRoundUp(T Dividend, T Divisor)
	{
		return (Dividend + Divisor - 1) / Divisor;
	}

	/** Number of set bits; the engine has it from its platform math, which FMath extends. */
	static constexpr int32 CountBits(uint64 Bits)
	{
		return __builtin_popcountll(Bits);
	}

	static int32 TruncToInt(double F)
	{
		return static_cast<int32>(F);
	}
	static int32 FloorToInt(double F)
	{
		return static_cast<int32>(std::floor(F));
	}
	static int32 CeilToInt(double F)
	{
		return static_cast<int32>(std::ceil(F));
	}
	static int32 RoundToInt(double F)
	{
		return FloorToInt(F + 0.5);
	}
	static int64 FloorToInt64(double F)
	{
		return static_cast<int64>(std::floor(F));
	}
	static double FloorToDouble(double F)
	{
		return std::floor(F);
	}
	static float FloorToFloat(float F)
	{
		return std::floor(F);
	}
	static double CeilToDouble(double F)
	{
		return std::ceil(F);
	}
	static float CeilToFloat(float F)
	{
		return std::ceil(F);
	}
	static double RoundToDouble(double F)
	{
		return std::floor(F + 0.5);
	}
	static float RoundToFloat(float F)
	{
		return std::floor(F + 0.5f);
	}
	static double Fractional(double Value)
	{
		return Value - static_cast<double>(static_cast<int64>(Value));
	}
	static double Fmod(double X, double Y)
	{
		return std::fmod(X, Y);
	}
	static double Sqrt(double Value)
	{
		return std::sqrt(Value);
	}
	static float Sqrt(float Value)
	{
		return std::sqrt(Value);
	}
	static double Pow(double A, double B)
	{
		return std::pow(A, B);
	}
	static double Exp(double Value)
	{
		return std::exp(Value);
	}
	static double Loge(double Value)
	{
		return std::log(Value);
	}
	static double LogX(double Base, double Value)
	{
		return std::log(Value) / std::log(Base);
	}
	static double Sin(double Value)
	{
		return std::sin(Value);
	}
	static double Cos(double Value)
	{
		return std::cos(Value);
	}
	static double Atan2(double Y, double X)
	{
		return std::atan2(Y, X);
	}
	static bool IsNaN(double A)
	{
		return std::isnan(A);
	}
	static bool IsFinite(double A)
	{
		return std::isfinite(A);
	}
	static bool IsNearlyEqual(double A, double B, double ErrorTolerance = UE_DOUBLE_SMALL_NUMBER)
	{
		return Abs(A - B) <= ErrorTolerance;
	}
	static bool IsNearlyZero(double Value, double ErrorTolerance = UE_DOUBLE_SMALL_NUMBER)
	{
		return Abs(Value) <= ErrorTolerance;
	}

	CORE_API static void RandInit(int32 Seed);
	CORE_API static int32 Rand();
	CORE_API static float FRand();
	static int32 RandRange(int32 Min, int32 Max)
	{
		const int32 Range = (Max - Min) + 1;
		return Min + (Range > 0 ? Rand() % Range : 0);
	}
	static double FRandRange(double InMin, double InMax)
	{
		return InMin + (InMax - InMin) * FRand();
	}
	static bool RandBool()
	{
		return (Rand() & 1) != 0;
	}
};
