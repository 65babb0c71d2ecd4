#pragma once

#include "CoreMinimal.h"

enum EHorizontalAlignment : int
{
	HAlign_Fill = 0,
	HAlign_Left = 1,
	HAlign_Center = 2,
	HAlign_Right = 3
};

enum EVerticalAlignment : int
{
	VAlign_Fill = 0,
	VAlign_Top = 1,
	VAlign_Center = 2,
	VAlign_Bottom = 3
};

enum EOrientation : int
{
	Orient_Horizontal,
	Orient_Vertical
};

enum class EFocusCause : uint8
{
	Mouse,
	Navigation,
	SetDirectly,
	Cleared,
	OtherWidgetLostFocus,
	WindowActivate
};

enum class EWidgetClipping : uint8
{
	Inherit,
	ClipToBounds,
	ClipToBoundsWithoutIntersecting,
	ClipToBoundsAlways,
	OnDemand
};

enum class ESelectionMode : uint8
{
	None,
	Single,
	SingleToggle,
	Multi
};

namespace ESelectInfo
{
	enum Type
	{
		OnKeyPress,
		OnNavigation,
		OnMouseClick,
		Direct
	};
}

namespace ETextCommit
{
	enum Type
	{
		Default,
		OnEnter,
		OnUserMovedFocus,
		OnCleared
	};
}

namespace ETextJustify
{
	enum Type
	{
		Left,
		Center,
		Right,
		InvariantLeft,
		InvariantRight
	};
}

namespace ETextWrappingPolicy
{
	enum Type
	{
		DefaultWrapping,
		AllowPerCharacterWrapping
	};
}

enum class ETextOverflowPolicy : uint8
{
	Clip,
	Ellipsis,
	MultilineEllipsis
};

enum class ETextTransformPolicy : uint8
{
	None,
	ToLower,
	ToUpper
};

enum class EConsumeMouseWheel : uint8
{
	WhenScrollingPossible,
	Always,
	Never
};

enum class EAllowOverscroll : uint8
{
	Yes,
	No
};

enum class EScrollWhenFocusChanges : uint8
{
	NoScroll,
	InstantScroll,
	AnimatedScroll
};

namespace EButtonClickMethod
{
	enum Type
	{
		DownAndUp,
		MouseDown,
		MouseUp,
		PreciseClick
	};
}

namespace EButtonPressMethod
{
	enum Type
	{
		DownAndUp,
		ButtonPress,
		ButtonRelease
	};
}
