// FTransform: rotation, translation and non-uniform scale, applied in that order (scale first).
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Math/Vector.h"
#include "Math/Rotator.h"
#include "Math/Quat.h"

// The reflection data of the transform reads its members directly.
struct Z_Construct_UScriptStruct_FTransform_Statics;

namespace UE::Math
{
	template<typename T>
	struct TTransform
	{
		friend struct ::Z_Construct_UScriptStruct_FTransform_Statics;

		using FReal = T;

		TTransform()
			: Rotation(0, 0, 0, 1)
			, Translation(0, 0, 0)
			, Scale3D(1, 1, 1)
		{
		}
		explicit TTransform(const TVector<T>& InTranslation)
			: Rotation(0, 0, 0, 1)
			, Translation(InTranslation)
			, Scale3D(1, 1, 1)
		{
		}
		explicit TTransform(const TQuat<T>& InRotation)
			: Rotation(InRotation)
			, Translation(0, 0, 0)
			, Scale3D(1, 1, 1)
		{
		}
		TTransform(const TQuat<T>& InRotation, const TVector<T>& InTranslation, const TVector<T>& InScale3D = TVector<T>(1, 1, 1))
			: Rotation(InRotation)
			, Translation(InTranslation)
			, Scale3D(InScale3D)
		{
		}
		TTransform(const TRotator<T>& InRotation, const TVector<T>& InTranslation, const TVector<T>& InScale3D = TVector<T>(1, 1, 1))
			: Rotation(InRotation)
			, Translation(InTranslation)
			, Scale3D(InScale3D)
		{
		}

		static const TTransform Identity;

		TQuat<T> GetRotation() const
		{
			return Rotation;
		}
		TRotator<T> Rotator() const
		{
			return Rotation.Rotator();
		}
		TVector<T> GetTranslation() const
		{
			return Translation;
		}
		TVector<T> GetLocation() const
		{
			return Translation;
		}
		TVector<T> GetScale3D() const
		{
			return Scale3D;
		}
		void SetRotation(const TQuat<T>& NewRotation)
		{
			Rotation = NewRotation;
		}
		void SetTranslation(const TVector<T>& NewTranslation)
		{
			Translation = NewTranslation;
		}
		void SetLocation(const TVector<T>& NewLocation)
		{
			Translation = NewLocation;
		}
		void SetScale3D(const TVector<T>& NewScale3D)
		{
			Scale3D = NewScale3D;
		}
		void SetIdentity()
		{
			*this = TTransform();
		}

		TVector<T> TransformPosition(const TVector<T>& V) const
		{
			return Rotation.RotateVector(Scale3D * V) + Translation;
		}
		TVector<T> TransformVector(const TVector<T>& V) const
		{
			return Rotation.RotateVector(Scale3D * V);
		}

		bool Equals(const TTransform& Other, T Tolerance = static_cast<T>(UE_KINDA_SMALL_NUMBER)) const
		{
			return Rotation.Equals(Other.Rotation, Tolerance) && Translation.Equals(Other.Translation, Tolerance) && Scale3D.Equals(Other.Scale3D, Tolerance);
		}
		bool operator==(const TTransform& Other) const
		{
			return Rotation == Other.Rotation && Translation == Other.Translation && Scale3D == Other.Scale3D;
		}
		bool operator!=(const TTransform& Other) const
		{
			return !(*this == Other);
		}

		// "Tx,Ty,Tz|Pitch,Yaw,Roll|Sx,Sy,Sz", as the engine writes it.
		FString ToString() const
		{
			const TRotator<T> R = Rotator();
			return FString::Printf(TEXT("%f,%f,%f|%f,%f,%f|%f,%f,%f"), static_cast<double>(Translation.X), static_cast<double>(Translation.Y), static_cast<double>(Translation.Z), static_cast<double>(R.Pitch), static_cast<double>(R.Yaw), static_cast<double>(R.Roll), static_cast<double>(Scale3D.X), static_cast<double>(Scale3D.Y), static_cast<double>(Scale3D.Z));
		}

	protected:
		TQuat<T> Rotation;
		TVector<T> Translation;
		TVector<T> Scale3D;
	};

	template<typename T>
	inline const TTransform<T> TTransform<T>::Identity;
}

using FTransform = UE::Math::TTransform<double>;
using FTransform3d = UE::Math::TTransform<double>;
using FTransform3f = UE::Math::TTransform<float>;
