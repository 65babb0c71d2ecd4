// FVector: a point or direction in 3D space with double components, as in the engine's large-world math.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Math/UnrealMathUtility.h"
#include "Templates/TypeHash.h"

namespace UE::Math
{
	template<typename T>
	struct TVector
	{
		using FReal = T;

		T X;
		T Y;
		T Z;

		// Zeroed, unlike the engine's uninitialised default, so that reflected members start defined.
		constexpr TVector()
			: X(0)
			, Y(0)
			, Z(0)
		{
		}
		explicit constexpr TVector(T InF)
			: X(InF)
			, Y(InF)
			, Z(InF)
		{
		}
		constexpr TVector(T InX, T InY, T InZ)
			: X(InX)
			, Y(InY)
			, Z(InZ)
		{
		}
		template<typename FArg>
		explicit TVector(const TVector<FArg>& From)
			: X(static_cast<T>(From.X))
			, Y(static_cast<T>(From.Y))
			, Z(static_cast<T>(From.Z))
		{
		}

		static const TVector ZeroVector;
		static const TVector OneVector;
		static const TVector UpVector;
		static const TVector ForwardVector;
		static const TVector RightVector;

		TVector operator+(const TVector& V) const
		{
			return TVector(X + V.X, Y + V.Y, Z + V.Z);
		}
		TVector operator-(const TVector& V) const
		{
			return TVector(X - V.X, Y - V.Y, Z - V.Z);
		}
		TVector operator-() const
		{
			return TVector(-X, -Y, -Z);
		}
		TVector operator*(T Scale) const
		{
			return TVector(X * Scale, Y * Scale, Z * Scale);
		}
		TVector operator/(T Scale) const
		{
			return TVector(X / Scale, Y / Scale, Z / Scale);
		}
		TVector operator*(const TVector& V) const
		{
			return TVector(X * V.X, Y * V.Y, Z * V.Z);
		}
		TVector& operator+=(const TVector& V)
		{
			X += V.X;
			Y += V.Y;
			Z += V.Z;
			return *this;
		}
		TVector& operator-=(const TVector& V)
		{
			X -= V.X;
			Y -= V.Y;
			Z -= V.Z;
			return *this;
		}
		TVector& operator*=(T Scale)
		{
			X *= Scale;
			Y *= Scale;
			Z *= Scale;
			return *this;
		}
		bool operator==(const TVector& V) const
		{
			return X == V.X && Y == V.Y && Z == V.Z;
		}
		bool operator!=(const TVector& V) const
		{
			return !(*this == V);
		}
		T& operator[](int32 Index)
		{
			return Index == 0 ? X : (Index == 1 ? Y : Z);
		}
		T operator[](int32 Index) const
		{
			return Index == 0 ? X : (Index == 1 ? Y : Z);
		}

		bool Equals(const TVector& V, T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			return FMath::Abs(X - V.X) <= Tolerance && FMath::Abs(Y - V.Y) <= Tolerance && FMath::Abs(Z - V.Z) <= Tolerance;
		}
		bool IsZero() const
		{
			return X == 0 && Y == 0 && Z == 0;
		}
		bool IsNearlyZero(T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			return FMath::Abs(X) <= Tolerance && FMath::Abs(Y) <= Tolerance && FMath::Abs(Z) <= Tolerance;
		}
		T Size() const
		{
			return static_cast<T>(FMath::Sqrt(static_cast<double>(X * X + Y * Y + Z * Z)));
		}
		T SizeSquared() const
		{
			return X * X + Y * Y + Z * Z;
		}
		T Dot(const TVector& V) const
		{
			return X * V.X + Y * V.Y + Z * V.Z;
		}
		TVector Cross(const TVector& V) const
		{
			return TVector(Y * V.Z - Z * V.Y, Z * V.X - X * V.Z, X * V.Y - Y * V.X);
		}
		// The unit vector in this direction, or zero for a vector too short to have one.
		TVector GetSafeNormal(T Tolerance = static_cast<T>(UE_SMALL_NUMBER)) const
		{
			const T SquareSum = SizeSquared();
			if (SquareSum <= Tolerance)
			{
				return TVector(0, 0, 0);
			}
			return *this / static_cast<T>(FMath::Sqrt(static_cast<double>(SquareSum)));
		}
		static T Dist(const TVector& A, const TVector& B)
		{
			return (A - B).Size();
		}

		// "X=1.000 Y=2.000 Z=3.000"
		FString ToString() const
		{
			return FString::Printf(TEXT("X=%3.3f Y=%3.3f Z=%3.3f"), static_cast<double>(X), static_cast<double>(Y), static_cast<double>(Z));
		}
		// Reads the form ToString writes; false leaves the vector as it was.
		bool InitFromString(const FString& InSourceString);
	};

	template<typename T>
	inline const TVector<T> TVector<T>::ZeroVector(0, 0, 0);
	template<typename T>
	inline const TVector<T> TVector<T>::OneVector(1, 1, 1);
	template<typename T>
	inline const TVector<T> TVector<T>::UpVector(0, 0, 1);
	template<typename T>
	inline const TVector<T> TVector<T>::ForwardVector(1, 0, 0);
	template<typename T>
	inline const TVector<T> TVector<T>::RightVector(0, 1, 0);

	template<typename T>
	inline TVector<T> operator*(T Scale, const TVector<T>& V)
	{
		return V * Scale;
	}

	template<typename T>
	inline uint32 GetTypeHash(const TVector<T>& Vector)
	{
		return HashCombine(HashCombine(::GetTypeHash(Vector.X), ::GetTypeHash(Vector.Y)), ::GetTypeHash(Vector.Z));
	}

	// Reads "Key=Number" out of text such as "X=1 Y=2 Z=3"; false when the key isn't there.
	CORE_API bool ParseNamedNumber(const FString& Source, const TCHAR* Key, double& OutValue);

	template<typename T>
	bool TVector<T>::InitFromString(const FString& InSourceString)
	{
		double ParsedX = 0.0;
		double ParsedY = 0.0;
		double ParsedZ = 0.0;
		if (!ParseNamedNumber(InSourceString, TEXT("X"), ParsedX) || !ParseNamedNumber(InSourceString, TEXT("Y"), ParsedY) || !ParseNamedNumber(InSourceString, TEXT("Z"), ParsedZ))
		{
			return false;
		}
		X = static_cast<T>(ParsedX);
		Y = static_cast<T>(ParsedY);
		Z = static_cast<T>(ParsedZ);
		return true;
	}
}

using FVector = UE::Math::TVector<double>;
using FVector3d = UE::Math::TVector<double>;
using FVector3f = UE::Math::TVector<float>;
