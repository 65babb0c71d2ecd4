#include "Math/Quat.h"
#include "Misc/Char.h"
#include <cmath>
#include <cstdlib>
#include <string>

namespace UE::Math
{
	namespace
	{
		constexpr double DegreesToRadians = UE_DOUBLE_PI / 180.0;
		constexpr double RadiansToDegrees = 180.0 / UE_DOUBLE_PI;
	}

	void RotatorToQuat(double Pitch, double Yaw, double Roll, double& OutX, double& OutY, double& OutZ, double& OutW)
	{
		const double HalfRadians = DegreesToRadians / 2.0;
		const double SP = std::sin(std::fmod(Pitch, 360.0) * HalfRadians);
		const double CP = std::cos(std::fmod(Pitch, 360.0) * HalfRadians);
		const double SY = std::sin(std::fmod(Yaw, 360.0) * HalfRadians);
		const double CY = std::cos(std::fmod(Yaw, 360.0) * HalfRadians);
		const double SR = std::sin(std::fmod(Roll, 360.0) * HalfRadians);
		const double CR = std::cos(std::fmod(Roll, 360.0) * HalfRadians);
		OutX = CR * SP * SY - SR * CP * CY;
		OutY = -CR * SP * CY - SR * CP * SY;
		OutZ = CR * CP * SY - SR * SP * CY;
		OutW = CR * CP * CY + SR * SP * SY;
	}

	void QuatToRotator(double X, double Y, double Z, double W, double& OutPitch, double& OutYaw, double& OutRoll)
	{
		// Near straight up or down yaw and roll turn about the same axis; the engine folds them into yaw.
		const double SingularityTest = Z * X - W * Y;
		const double YawY = 2.0 * (W * Z + X * Y);
		const double YawX = 1.0 - 2.0 * (Y * Y + Z * Z);
		const double SingularityThreshold = 0.4999995;
		OutYaw = std::atan2(YawY, YawX) * RadiansToDegrees;
		if (SingularityTest < -SingularityThreshold)
		{
			OutPitch = -90.0;
			OutRoll = FRotator::NormalizeAxis(-OutYaw - 2.0 * std::atan2(X, W) * RadiansToDegrees);
		}
		else if (SingularityTest > SingularityThreshold)
		{
			OutPitch = 90.0;
			OutRoll = FRotator::NormalizeAxis(OutYaw - 2.0 * std::atan2(X, W) * RadiansToDegrees);
		}
		else
		{
			OutPitch = std::asin(2.0 * SingularityTest) * RadiansToDegrees;
			OutRoll = std::atan2(-2.0 * (W * X + Y * Z), 1.0 - 2.0 * (X * X + Y * Y)) * RadiansToDegrees;
		}
	}

	bool ParseNamedNumber(const FString& Source, const TCHAR* Key, double& OutValue)
	{
		const FString Pattern = FString(Key) + TEXT("=");
		int32 Start = 0;
		while (true)
		{
			const int32 Found = Source.Find(Pattern, ESearchCase::IgnoreCase, ESearchDir::FromStart, Start);
			if (Found == INDEX_NONE)
			{
				return false;
			}
			// The key must stand alone: "Y=" must not match inside "XY=".
			if (Found == 0 || !FChar::IsAlnum(Source[Found - 1]))
			{
				std::string Number;
				for (int32 Index = Found + Pattern.Len(); Index < Source.Len(); ++Index)
				{
					const TCHAR Char = Source[Index];
					if (!(FChar::IsDigit(Char) || Char == TEXT('-') || Char == TEXT('+') || Char == TEXT('.') || Char == TEXT('e') || Char == TEXT('E')))
					{
						break;
					}
					Number.push_back(static_cast<char>(Char));
				}
				char* End = nullptr;
				const double Value = std::strtod(Number.c_str(), &End);
				if (Number.empty() || End == Number.c_str())
				{
					return false;
				}
				OutValue = Value;
				return true;
			}
			Start = Found + 1;
		}
	}
}
