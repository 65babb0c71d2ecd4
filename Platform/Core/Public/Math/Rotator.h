// FRotator: an orientation as pitch, yaw and roll in degrees.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"
#include "Math/Vector.h"

namespace UE::Math
{
	template<typename T>
	struct TQuat;

	template<typename T>
	struct TRotator
	{
		using FReal = T;

		// Around the right axis (looking up and down).
		T Pitch;
		// Around the up axis (turning left and right).
		T Yaw;
		// Around the forward axis (tilting the head).
		T Roll;

		constexpr TRotator()
			: Pitch(0)
			, Yaw(0)
			, Roll(0)
		{
		}
		explicit constexpr TRotator(T InF)
			: Pitch(InF)
			, Yaw(InF)
			, Roll(InF)
		{
		}
		constexpr TRotator(T InPitch, T InYaw, T InRoll)
			: Pitch(InPitch)
			, Yaw(InYaw)
			, Roll(InRoll)
		{
		}
		explicit TRotator(const TQuat<T>& Quat);

		static const TRotator ZeroRotator;

		TRotator operator+(const TRotator& R) const
		{
			return TRotator(Pitch + R.Pitch, Yaw + R.Yaw, Roll + R.Roll);
		}
		TRotator operator-(const TRotator& R) const
		{
			return TRotator(Pitch - R.Pitch, Yaw - R.Yaw, Roll - R.Roll);
		}
		TRotator operator*(T Scale) const
		{
			return TRotator(Pitch * Scale, Yaw * Scale, Roll * Scale);
		}
		bool operator==(const TRotator& R) const
		{
			return Pitch == R.Pitch && Yaw == R.Yaw && Roll == R.Roll;
		}
		bool operator!=(const TRotator& R) const
		{
			return !(*this == R);
		}

		// Angles that differ by whole turns are equal.
		bool Equals(const TRotator& R, T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			return FMath::Abs(NormalizeAxis(Pitch - R.Pitch)) <= Tolerance && FMath::Abs(NormalizeAxis(Yaw - R.Yaw)) <= Tolerance && FMath::Abs(NormalizeAxis(Roll - R.Roll)) <= Tolerance;
		}
		bool IsZero() const
		{
			return ClampAxis(Pitch) == 0 && ClampAxis(Yaw) == 0 && ClampAxis(Roll) == 0;
		}
		bool IsNearlyZero(T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			return FMath::Abs(NormalizeAxis(Pitch)) <= Tolerance && FMath::Abs(NormalizeAxis(Yaw)) <= Tolerance && FMath::Abs(NormalizeAxis(Roll)) <= Tolerance;
		}

		// The angle in [0, 360).
		static T ClampAxis(T Angle)
		{
			Angle = static_cast<T>(FMath::Fmod(static_cast<double>(Angle), 360.0));
			if (Angle < 0)
			{
				Angle += 360;
			}
			return Angle;
		}
		// The angle in (-180, 180].
		static T NormalizeAxis(T Angle)
		{
			Angle = ClampAxis(Angle);
			if (Angle > 180)
			{
				Angle -= 360;
			}
			return Angle;
		}
		TRotator GetNormalized() const
		{
			return TRotator(NormalizeAxis(Pitch), NormalizeAxis(Yaw), NormalizeAxis(Roll));
		}

		TQuat<T> Quaternion() const;
		// The unit vector this rotation points the forward axis to.
		TVector<T> Vector() const;

		// "P=10.000000 Y=20.000000 R=30.000000"
		FString ToString() const
		{
			return FString::Printf(TEXT("P=%f Y=%f R=%f"), static_cast<double>(Pitch), static_cast<double>(Yaw), static_cast<double>(Roll));
		}
		bool InitFromString(const FString& InSourceString)
		{
			double ParsedPitch = 0.0;
			double ParsedYaw = 0.0;
			double ParsedRoll = 0.0;
			const bool bParsed = ParseNamedNumber(InSourceString, TEXT("P"), ParsedPitch) && ParseNamedNumber(InSourceString, TEXT("Y"), ParsedYaw) && ParseNamedNumber(InSourceString, TEXT("R"), ParsedRoll);
			if (bParsed)
			{
				Pitch = static_cast<T>(ParsedPitch);
				Yaw = static_cast<T>(ParsedYaw);
				Roll = static_cast<T>(ParsedRoll);
			}
			return bParsed;
		}
	};

	template<typename T>
	inline const TRotator<T> TRotator<T>::ZeroRotator(0, 0, 0);

	template<typename T>
	TVector<T> TRotator<T>::Vector() const
	{
		const double PitchRadians = static_cast<double>(Pitch) * UE_DOUBLE_PI / 180.0;
		const double YawRadians = static_cast<double>(Yaw) * UE_DOUBLE_PI / 180.0;
		const double CosPitch = FMath::Cos(PitchRadians);
		return TVector<T>(static_cast<T>(CosPitch * FMath::Cos(YawRadians)), static_cast<T>(CosPitch * FMath::Sin(YawRadians)), static_cast<T>(FMath::Sin(PitchRadians)));
	}
}

using FRotator = UE::Math::TRotator<double>;
using FRotator3d = UE::Math::TRotator<double>;
using FRotator3f = UE::Math::TRotator<float>;
#include "Math/Quat.h"
