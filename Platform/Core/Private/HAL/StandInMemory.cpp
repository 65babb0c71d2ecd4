#include "HAL/StandInMemory.h"

#include <malloc.h>

void FStandInMemory::KeepFreedMemoryForReuse()
{
	mallopt(M_MMAP_MAX, 0);
	mallopt(M_TRIM_THRESHOLD, 1 << 30);
}
