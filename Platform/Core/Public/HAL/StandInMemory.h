#pragma once

#include "CoreTypes.h"

/**
 * How the stand-in's process manages the C allocator. The engine's own allocator keeps freed memory for
 * reuse; glibc's hands every block over 32 MB back to the system and faults it in again on the next use,
 * which makes work on large files (a 20 MB source is a 40 MB string) several times slower than it is in
 * the editor. Only the stand-in has this; programs that stand for the editor call it once at start.
 */
class FStandInMemory
{
public:
	/** Serves every block from the heap and keeps up to 1 GB of freed memory instead of returning it. */
	static void KeepFreedMemoryForReuse();
};
