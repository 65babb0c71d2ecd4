#pragma once

#include "CoreTypes.h"

namespace UE::TaskGraph::Private
{
	/** Makes the calling thread the game thread, unless one is already known; true if the caller is it. */
	bool ClaimGameThread();

	/** True only on a game thread already claimed; IsInGameThread also says true before any claim. */
	bool IsKnownGameThread();
}
