#pragma once

#include "CoreMinimal.h"
#include "Rendering/SlateRenderer.h"
#include "Types/SlateEnums.h"

class SWidget;

/** What SlateCore needs of the application: time, keyboard focus and the renderer. */
class FSlateApplicationBase
{
public:
	virtual ~FSlateApplicationBase() = default;

	static bool IsInitialized()
	{
		return CurrentBaseApplication != nullptr;
	}
	static FSlateApplicationBase& Get()
	{
		check(CurrentBaseApplication);
		return *CurrentBaseApplication;
	}

	FSlateRenderer* GetRenderer() const
	{
		return Renderer.Get();
	}
	double GetCurrentTime() const
	{
		return CurrentTime;
	}
	float GetDeltaTime() const
	{
		return DeltaTime;
	}
	TSharedPtr<SWidget> GetKeyboardFocusedWidget() const
	{
		return FocusedWidget.Pin();
	}

protected:
	static SLATECORE_API FSlateApplicationBase* CurrentBaseApplication;

	TUniquePtr<FSlateRenderer> Renderer;
	TWeakPtr<SWidget> FocusedWidget;
	double CurrentTime = 0.0;
	float DeltaTime = 0.0f;
};
