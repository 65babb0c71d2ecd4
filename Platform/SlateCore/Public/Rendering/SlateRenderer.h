#pragma once

#include "CoreMinimal.h"

/** The stand-in's renderer loads no textures: the page draws images from their files when asked. */
class FSlateRenderer
{
public:
	virtual ~FSlateRenderer() = default;
	virtual void ReloadTextureResources()
	{
		++ReloadCount;
	}
	/** Stand-in only: how often the textures were reloaded. */
	int32 GetStandInReloadCount() const
	{
		return ReloadCount;
	}

private:
	int32 ReloadCount = 0;
};
