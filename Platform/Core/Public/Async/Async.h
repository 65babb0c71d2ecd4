#pragma once

#include "CoreTypes.h"
#include "Async/TaskGraphInterfaces.h"
#include "Templates/Function.h"

/** Runs a function on the given thread as a graph task: for the game thread, at the loop's next turn. */
CORE_API void AsyncTask(ENamedThreads::Type Thread, TUniqueFunction<void()> Function);
