// The math structs that components and transforms are made of: conversions between rotation forms, and
// transforms applied to points.
#include "CoreMinimal.h"
#include "Math/Transform.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

TEST(Math, RotatorsAndQuaternionsConvertBothWays)
{
	const FRotator Cases[] = {FRotator(0.0, 0.0, 0.0), FRotator(10.0, 20.0, 30.0), FRotator(-45.0, 170.0, -120.0), FRotator(0.0, -90.0, 0.0), FRotator(89.0, 12.0, 0.0)};
	for (const FRotator& Rotator : Cases)
	{
		const FQuat Quat = Rotator.Quaternion();
		EXPECT_NEAR(Quat.X * Quat.X + Quat.Y * Quat.Y + Quat.Z * Quat.Z + Quat.W * Quat.W, 1.0, 1e-9) << TCHAR_TO_UTF8(*Rotator.ToString());
		EXPECT_TRUE(Quat.Rotator().Equals(Rotator, 1e-6)) << TCHAR_TO_UTF8(*Rotator.ToString()) << " came back as " << TCHAR_TO_UTF8(*Quat.Rotator().ToString());
	}
	// Straight up, yaw and roll turn about the same axis: the engine folds them into yaw.
	const FRotator Up = FRotator(90.0, 30.0, 10.0).Quaternion().Rotator();
	EXPECT_NEAR(Up.Pitch, 90.0, 1e-6);
	EXPECT_TRUE(Up.Quaternion().Equals(FRotator(90.0, 30.0, 10.0).Quaternion(), 1e-6));
	// Angles a whole turn apart are the same rotation.
	EXPECT_TRUE(FRotator(0.0, 370.0, -360.0).Equals(FRotator(0.0, 10.0, 0.0)));
	EXPECT_FALSE(FRotator(0.0, 10.0, 0.0).Equals(FRotator(0.0, 11.0, 0.0)));
	EXPECT_DOUBLE_EQ(FRotator::NormalizeAxis(270.0), -90.0);
	EXPECT_DOUBLE_EQ(FRotator::ClampAxis(-90.0), 270.0);
}

TEST(Math, TransformsScaleThenRotateThenMove)
{
	const FTransform Transform(FRotator(0.0, 90.0, 0.0), FVector(10.0, 0.0, 0.0), FVector(2.0, 2.0, 2.0));
	// Forward, scaled to 2, turned a quarter to the right, moved by 10 along X.
	EXPECT_TRUE(Transform.TransformPosition(FVector(1.0, 0.0, 0.0)).Equals(FVector(10.0, 2.0, 0.0), 1e-9));
	EXPECT_TRUE(Transform.TransformVector(FVector(1.0, 0.0, 0.0)).Equals(FVector(0.0, 2.0, 0.0), 1e-9));
	EXPECT_TRUE(Transform.Rotator().Equals(FRotator(0.0, 90.0, 0.0), 1e-9));
	EXPECT_TRUE(FTransform::Identity.TransformPosition(FVector(1.0, 2.0, 3.0)).Equals(FVector(1.0, 2.0, 3.0)));
	EXPECT_TRUE(FRotator(0.0, 90.0, 0.0).Vector().Equals(FVector(0.0, 1.0, 0.0), 1e-9));
	EXPECT_TRUE(FRotator(0.0, 90.0, 0.0).Quaternion().RotateVector(FVector(1.0, 0.0, 0.0)).Equals(FVector(0.0, 1.0, 0.0), 1e-9));
	EXPECT_TRUE(FQuat::Identity.IsIdentity());
	EXPECT_TRUE(FQuat(0.0, 0.0, 0.0, -1.0).Equals(FQuat::Identity));
}

TEST(Math, VectorsReadBackTheirTextForm)
{
	const FVector Vector(1.5, -2.25, 3.0);
	EXPECT_EQ(Vector.ToString(), TEXT("X=1.500 Y=-2.250 Z=3.000"));
	FVector Parsed;
	EXPECT_TRUE(Parsed.InitFromString(Vector.ToString()));
	EXPECT_TRUE(Parsed.Equals(Vector));
	FVector Unchanged(7.0, 7.0, 7.0);
	EXPECT_FALSE(Unchanged.InitFromString(TEXT("X=1 Z=3")));
	EXPECT_EQ(Unchanged, FVector(7.0, 7.0, 7.0));
	FRotator Rotator;
	EXPECT_TRUE(Rotator.InitFromString(TEXT("P=10 Y=-20.5 R=3")));
	EXPECT_EQ(Rotator, FRotator(10.0, -20.5, 3.0));
	EXPECT_TRUE(FVector(3.0, 4.0, 0.0).GetSafeNormal().Equals(FVector(0.6, 0.8, 0.0)));
	EXPECT_TRUE(FVector::ZeroVector.GetSafeNormal().IsZero());
	EXPECT_DOUBLE_EQ(FVector::Dist(FVector(1.0, 1.0, 1.0), FVector(1.0, 4.0, 5.0)), 5.0);
	EXPECT_EQ(FVector(1.0, 0.0, 0.0).Cross(FVector(0.0, 1.0, 0.0)), FVector(0.0, 0.0, 1.0));
}
