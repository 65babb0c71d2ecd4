// libFuzzer target: modification documents, mutated from the seed corpus, applied to a sample Blueprint.
// Every so many inputs the Blueprint must still save and load as it reads.
#include "CoreMinimal.h"
#include "ModifyBlueprintFuzzHarness.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace
{
	constexpr int32 RunsBetweenReloads = 250;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	static FModifyBlueprintFuzzHarness Harness(FString(TEXT(MODIFY_BLUEPRINT_FUZZ_PROJECT_DIR)));
	static int32 Runs = 0;

	const FUTF8ToTCHAR Converted(reinterpret_cast<const ANSICHAR*>(Data), static_cast<int32>(Size));
	Harness.Run(FString(Converted.Length(), Converted.Get()));
	if (++Runs % RunsBetweenReloads == 0 && !Harness.SavesAndLoads())
	{
		// A Blueprint that no longer saves or loads as it reads is a finding.
		std::abort();
	}
	return 0;
}
