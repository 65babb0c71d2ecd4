#include "Math/Color.h"

#include "Math/UnrealMathUtility.h"

const FLinearColor FLinearColor::White(1.f, 1.f, 1.f);
const FLinearColor FLinearColor::Gray(0.5f, 0.5f, 0.5f);
const FLinearColor FLinearColor::Black(0.f, 0.f, 0.f);
const FLinearColor FLinearColor::Transparent(0.f, 0.f, 0.f, 0.f);
const FLinearColor FLinearColor::Red(1.f, 0.f, 0.f);
const FLinearColor FLinearColor::Green(0.f, 1.f, 0.f);
const FLinearColor FLinearColor::Blue(0.f, 0.f, 1.f);
const FLinearColor FLinearColor::Yellow(1.f, 1.f, 0.f);

const FColor FColor::White(255, 255, 255);
const FColor FColor::Black(0, 0, 0);
const FColor FColor::Red(255, 0, 0);
const FColor FColor::Green(0, 255, 0);
const FColor FColor::Blue(0, 0, 255);

FLinearColor::FLinearColor(const FColor& Color)
	: FLinearColor(Color.ReinterpretAsLinear())
{
}

FColor FLinearColor::ToFColor(bool bSRGB) const
{
	auto Quantize = [](float Value) { return static_cast<uint8>(FMath::Clamp(FMath::RoundToInt(Value * 255.0f), 0, 255)); };
	return FColor(Quantize(R), Quantize(G), Quantize(B), Quantize(A));
}

FString FLinearColor::ToString() const
{
	return FString::Printf(TEXT("(R=%f,G=%f,B=%f,A=%f)"), R, G, B, A);
}

FString FColor::ToHex() const
{
	return FString::Printf(TEXT("%02X%02X%02X%02X"), R, G, B, A);
}

FString FColor::ToString() const
{
	return FString::Printf(TEXT("(R=%i,G=%i,B=%i,A=%i)"), R, G, B, A);
}
