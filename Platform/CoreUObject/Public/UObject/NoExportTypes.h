// The engine's core structs (vectors, rotations, transforms, colours, GUIDs) as reflection sees them. The
// C++ types live in Core; the header tool reads the declarations below and makes their UScriptStructs in
// "/Script/CoreUObject", as the engine does.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "Math/Vector.h"
#include "Math/Rotator.h"
#include "Math/Quat.h"
#include "Math/Transform.h"
#include "Math/Color.h"
#include "Misc/Guid.h"
#include "NoExportTypes.generated.h"

#if !CPP
USTRUCT(immutable, noexport, BlueprintType)
struct FVector
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Vector)
	double X;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Vector)
	double Y;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Vector)
	double Z;
};

USTRUCT(immutable, noexport, BlueprintType)
struct FRotator
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Rotator)
	double Pitch;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Rotator)
	double Yaw;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Rotator)
	double Roll;
};

USTRUCT(immutable, noexport, BlueprintType)
struct FQuat
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Quat)
	double X;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Quat)
	double Y;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Quat)
	double Z;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Quat)
	double W;
};

USTRUCT(immutable, noexport, BlueprintType)
struct FTransform
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Transform)
	FQuat Rotation;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Transform)
	FVector Translation;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Transform)
	FVector Scale3D;
};

USTRUCT(noexport, BlueprintType)
struct FLinearColor
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = LinearColor)
	float R;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = LinearColor)
	float G;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = LinearColor)
	float B;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = LinearColor)
	float A;
};

USTRUCT(noexport, BlueprintType)
struct FColor
{
	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Color)
	uint8 B;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Color)
	uint8 G;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Color)
	uint8 R;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, SaveGame, Category = Color)
	uint8 A;
};

USTRUCT(immutable, noexport, BlueprintType)
struct FGuid
{
	UPROPERTY(EditAnywhere, SaveGame, Category = Guid)
	uint32 A;

	UPROPERTY(EditAnywhere, SaveGame, Category = Guid)
	uint32 B;

	UPROPERTY(EditAnywhere, SaveGame, Category = Guid)
	uint32 C;

	UPROPERTY(EditAnywhere, SaveGame, Category = Guid)
	uint32 D;
};
#endif
