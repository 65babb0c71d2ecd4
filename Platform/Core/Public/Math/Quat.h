// FQuat: a rotation as a unit quaternion; the form transforms keep their rotation in.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"
#include "Math/Vector.h"
#include "Math/Rotator.h"

namespace UE::Math
{
	// The conversions between the two rotation forms, in double precision.
	CORE_API void RotatorToQuat(double Pitch, double Yaw, double Roll, double& OutX, double& OutY, double& OutZ, double& OutW);
	CORE_API void QuatToRotator(double X, double Y, double Z, double W, double& OutPitch, double& OutYaw, double& OutRoll);

	template<typename T>
	struct TQuat
	{
		using FReal = T;

		T X;
		T Y;
		T Z;
		T W;

		constexpr TQuat()
			: X(0)
			, Y(0)
			, Z(0)
			, W(1)
		{
		}
		constexpr TQuat(T InX, T InY, T InZ, T InW)
			: X(InX)
			, Y(InY)
			, Z(InZ)
			, W(InW)
		{
		}
		explicit TQuat(const TRotator<T>& R)
		{
			double QX, QY, QZ, QW;
			RotatorToQuat(static_cast<double>(R.Pitch), static_cast<double>(R.Yaw), static_cast<double>(R.Roll), QX, QY, QZ, QW);
			X = static_cast<T>(QX);
			Y = static_cast<T>(QY);
			Z = static_cast<T>(QZ);
			W = static_cast<T>(QW);
		}

		static const TQuat Identity;

		TRotator<T> Rotator() const
		{
			double Pitch, Yaw, Roll;
			QuatToRotator(static_cast<double>(X), static_cast<double>(Y), static_cast<double>(Z), static_cast<double>(W), Pitch, Yaw, Roll);
			return TRotator<T>(static_cast<T>(Pitch), static_cast<T>(Yaw), static_cast<T>(Roll));
		}
		// The Hamilton product: this rotation applied after Q.
		TQuat operator*(const TQuat& Q) const
		{
			return TQuat(W * Q.X + X * Q.W + Y * Q.Z - Z * Q.Y, W * Q.Y - X * Q.Z + Y * Q.W + Z * Q.X, W * Q.Z + X * Q.Y - Y * Q.X + Z * Q.W, W * Q.W - X * Q.X - Y * Q.Y - Z * Q.Z);
		}
		bool operator==(const TQuat& Q) const
		{
			return X == Q.X && Y == Q.Y && Z == Q.Z && W == Q.W;
		}
		bool operator!=(const TQuat& Q) const
		{
			return !(*this == Q);
		}
		// Q and -Q are the same rotation.
		bool Equals(const TQuat& Q, T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			const bool bSame = FMath::Abs(X - Q.X) <= Tolerance && FMath::Abs(Y - Q.Y) <= Tolerance && FMath::Abs(Z - Q.Z) <= Tolerance && FMath::Abs(W - Q.W) <= Tolerance;
			const bool bOpposite = FMath::Abs(X + Q.X) <= Tolerance && FMath::Abs(Y + Q.Y) <= Tolerance && FMath::Abs(Z + Q.Z) <= Tolerance && FMath::Abs(W + Q.W) <= Tolerance;
			return bSame || bOpposite;
		}
		bool IsIdentity(T Tolerance = static_cast<T>(UE_SMALL_NUMBER)) const
		{
			return Equals(TQuat(0, 0, 0, 1), Tolerance);
		}
		TQuat Inverse() const
		{
			return TQuat(-X, -Y, -Z, W);
		}
		TVector<T> RotateVector(const TVector<T>& V) const
		{
			// v' = v + 2w(q x v) + 2(q x (q x v)), for a unit quaternion.
			const TVector<T> Q(X, Y, Z);
			const TVector<T> Twice = Q.Cross(V) * static_cast<T>(2);
			return V + Twice * W + Q.Cross(Twice);
		}
		FString ToString() const
		{
			return FString::Printf(TEXT("X=%.9f Y=%.9f Z=%.9f W=%.9f"), static_cast<double>(X), static_cast<double>(Y), static_cast<double>(Z), static_cast<double>(W));
		}
	};

	template<typename T>
	inline const TQuat<T> TQuat<T>::Identity(0, 0, 0, 1);

	template<typename T>
	TRotator<T>::TRotator(const TQuat<T>& Quat)
	{
		*this = Quat.Rotator();
	}

	template<typename T>
	TQuat<T> TRotator<T>::Quaternion() const
	{
		return TQuat<T>(*this);
	}
}

using FQuat = UE::Math::TQuat<double>;
using FQuat4d = UE::Math::TQuat<double>;
using FQuat4f = UE::Math::TQuat<float>;
