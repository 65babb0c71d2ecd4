// The text form of pins in package files and transactions:
//   Pin (PinId=<guid>,PinName="then",Direction=Output,PinType=(PinCategory="exec",...),LinkedTo=(Node_0 <guid>,),...)
#pragma once

#include "CoreMinimal.h"

namespace UE::Engine::Private::PinText
{
	// "text" with \", \\ and control characters escaped.
	FString Quote(const FString& Value);
	// The comma-separated Key=Value items of a "(...)" list; quoted values are unquoted, nested lists kept
	// whole. False when the text isn't such a list.
	bool SplitList(const FString& Text, TArray<TPair<FString, FString>>& OutItems);
	// The items of "(A,B,)" without keys.
	bool SplitValues(const FString& Text, TArray<FString>& OutValues);
}
