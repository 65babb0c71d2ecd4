#include "BlueprintModelTestTypes.h"

bool ABlueprintTestPawn::MoveBy(FVector Offset, float Speed)
{
	return Speed > 0.f;
}
