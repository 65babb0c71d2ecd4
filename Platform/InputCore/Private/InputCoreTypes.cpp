#include "InputCoreTypes.h"

const FKey EKeys::Invalid;
const FKey EKeys::AnyKey(TEXT("AnyKey"));
const FKey EKeys::BackSpace(TEXT("BackSpace"));
const FKey EKeys::Tab(TEXT("Tab"));
const FKey EKeys::Enter(TEXT("Enter"));
const FKey EKeys::Pause(TEXT("Pause"));
const FKey EKeys::Escape(TEXT("Escape"));
const FKey EKeys::SpaceBar(TEXT("SpaceBar"));
const FKey EKeys::PageUp(TEXT("PageUp"));
const FKey EKeys::PageDown(TEXT("PageDown"));
const FKey EKeys::End(TEXT("End"));
const FKey EKeys::Home(TEXT("Home"));
const FKey EKeys::Left(TEXT("Left"));
const FKey EKeys::Up(TEXT("Up"));
const FKey EKeys::Right(TEXT("Right"));
const FKey EKeys::Down(TEXT("Down"));
const FKey EKeys::Insert(TEXT("Insert"));
const FKey EKeys::Delete(TEXT("Delete"));
const FKey EKeys::A(TEXT("A"));
const FKey EKeys::C(TEXT("C"));
const FKey EKeys::V(TEXT("V"));
const FKey EKeys::X(TEXT("X"));
const FKey EKeys::Z(TEXT("Z"));
const FKey EKeys::LeftShift(TEXT("LeftShift"));
const FKey EKeys::RightShift(TEXT("RightShift"));
const FKey EKeys::LeftControl(TEXT("LeftControl"));
const FKey EKeys::RightControl(TEXT("RightControl"));
const FKey EKeys::LeftAlt(TEXT("LeftAlt"));
const FKey EKeys::RightAlt(TEXT("RightAlt"));
const FKey EKeys::LeftCommand(TEXT("LeftCommand"));
const FKey EKeys::RightCommand(TEXT("RightCommand"));
const FKey EKeys::LeftMouseButton(TEXT("LeftMouseButton"));
const FKey EKeys::RightMouseButton(TEXT("RightMouseButton"));
const FKey EKeys::MouseScrollUp(TEXT("MouseScrollUp"));
const FKey EKeys::MouseScrollDown(TEXT("MouseScrollDown"));

bool FKey::IsModifierKey() const
{
	return *this == EKeys::LeftShift || *this == EKeys::RightShift || *this == EKeys::LeftControl || *this == EKeys::RightControl
		|| *this == EKeys::LeftAlt || *this == EKeys::RightAlt || *this == EKeys::LeftCommand || *this == EKeys::RightCommand;
}

FKey EKeys::FromName(const FName Name)
{
	static const FKey* const Known[] = {&AnyKey, &BackSpace, &Tab, &Enter, &Pause, &Escape, &SpaceBar, &PageUp, &PageDown, &End, &Home,
		&Left, &Up, &Right, &Down, &Insert, &Delete, &A, &C, &V, &X, &Z, &LeftShift, &RightShift, &LeftControl, &RightControl,
		&LeftAlt, &RightAlt, &LeftCommand, &RightCommand, &LeftMouseButton, &RightMouseButton, &MouseScrollUp, &MouseScrollDown};
	for (const FKey* Key : Known)
	{
		if (Key->GetFName() == Name)
		{
			return *Key;
		}
	}
	return Invalid;
}
