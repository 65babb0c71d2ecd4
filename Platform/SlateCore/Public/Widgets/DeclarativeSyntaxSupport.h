// The declarative syntax: SNew(SButton).Text(...).OnClicked(...)[ Child ], SAssignNew, SLATE_BEGIN_ARGS and
// its argument macros.
//
// `SNew(T).A(1)[ C ]` reads as `MakeTDecl<T>(...) <<= (T::FArguments().A(1)[ C ])`: the argument chain
// binds tighter than `<<=`, which makes the widget, runs SWidgetConstruct and Construct, and gives the
// shared reference.
#pragma once

#include "CoreMinimal.h"
#include "Layout/Children.h"
#include "Misc/Attribute.h"
#include "Widgets/SNullWidget.h"
#include "Widgets/SWidget.h"

#include <tuple>
#include <type_traits>

/** The arguments every widget takes. */
struct FSlateBaseNamedArgs
{
	TAttribute<FText> _ToolTipText;
	TAttribute<bool> _IsEnabled = true;
	TAttribute<EVisibility> _Visibility = EVisibility::Visible;
	float _RenderOpacity = 1.0f;
	bool _ForceVolatile = false;
	EWidgetClipping _Clipping = EWidgetClipping::Inherit;
	FName _Tag;
};

// The setters of one attribute argument: a value, a const getter bound through the widget's shared pointer,
// a raw pointer, a lambda or a static function.
#define SLATE_PRIVATE_ATTRIBUTE_FUNCTION(AttrType, AttrName) \
	WidgetArgsType& AttrName(TAttribute<AttrType> InAttribute) \
	{ \
		_##AttrName = MoveTemp(InAttribute); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass> \
	WidgetArgsType& AttrName(UserClass* InUserObject, typename TAttribute<AttrType>::template TConstGetter<UserClass> InFunc) \
	{ \
		_##AttrName = TAttribute<AttrType>::CreateSP(InUserObject, InFunc); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass> \
	WidgetArgsType& AttrName(const TSharedRef<UserClass>& InUserObject, typename TAttribute<AttrType>::template TConstGetter<UserClass> InFunc) \
	{ \
		_##AttrName = TAttribute<AttrType>::CreateSP(InUserObject, InFunc); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass> \
	WidgetArgsType& AttrName##_Raw(const UserClass* InUserObject, typename TAttribute<AttrType>::template TConstGetter<UserClass> InFunc) \
	{ \
		_##AttrName = TAttribute<AttrType>::CreateRaw(InUserObject, InFunc); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename FunctorType> \
	WidgetArgsType& AttrName##_Lambda(FunctorType&& InFunctor) \
	{ \
		_##AttrName = TAttribute<AttrType>::CreateLambda(Forward<FunctorType>(InFunctor)); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	WidgetArgsType& AttrName##_Static(AttrType (*InFunc)()) \
	{ \
		_##AttrName = TAttribute<AttrType>::CreateStatic(InFunc); \
		return static_cast<WidgetArgsType&>(*this); \
	}

template<typename InWidgetType>
struct TSlateBaseNamedArgs : public FSlateBaseNamedArgs
{
	typedef typename InWidgetType::FArguments WidgetArgsType;
	typedef InWidgetType WidgetType;

	SLATE_PRIVATE_ATTRIBUTE_FUNCTION(FText, ToolTipText)
	SLATE_PRIVATE_ATTRIBUTE_FUNCTION(bool, IsEnabled)
	SLATE_PRIVATE_ATTRIBUTE_FUNCTION(EVisibility, Visibility)

	WidgetArgsType& RenderOpacity(float InOpacity)
	{
		_RenderOpacity = InOpacity;
		return Me();
	}
	WidgetArgsType& ForceVolatile(bool bInForceVolatile)
	{
		_ForceVolatile = bInForceVolatile;
		return Me();
	}
	WidgetArgsType& Clipping(EWidgetClipping InClipping)
	{
		_Clipping = InClipping;
		return Me();
	}
	WidgetArgsType& Tag(FName InTag)
	{
		_Tag = InTag;
		return Me();
	}
	WidgetArgsType& Me()
	{
		return static_cast<WidgetArgsType&>(*this);
	}
};

#define SLATE_BEGIN_ARGS(WidgetType) \
public: \
	struct FArguments : public TSlateBaseNamedArgs<WidgetType> \
	{ \
		typedef FArguments WidgetArgsType; \
		FArguments()

#define SLATE_USER_ARGS(WidgetType) SLATE_BEGIN_ARGS(WidgetType)

#define SLATE_END_ARGS() \
	};

#define SLATE_ATTRIBUTE(AttrType, AttrName) \
	TAttribute<AttrType> _##AttrName; \
	SLATE_PRIVATE_ATTRIBUTE_FUNCTION(AttrType, AttrName)

// Value-initialised, so that an argument the widget's defaults forget never holds garbage.
#define SLATE_ARGUMENT(ArgType, ArgName) \
	ArgType _##ArgName{}; \
	WidgetArgsType& ArgName(ArgType InArg) \
	{ \
		_##ArgName = InArg; \
		return static_cast<WidgetArgsType&>(*this); \
	}

#define SLATE_STYLE_ARGUMENT(ArgType, ArgName) \
	const ArgType* _##ArgName = nullptr; \
	WidgetArgsType& ArgName(const ArgType* InArg) \
	{ \
		_##ArgName = InArg; \
		return static_cast<WidgetArgsType&>(*this); \
	}

#define SLATE_EVENT(DelegateName, EventName) \
	DelegateName _##EventName; \
	WidgetArgsType& EventName(const DelegateName& InDelegate) \
	{ \
		_##EventName = InDelegate; \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass, typename MethodType, typename... VarTypes> \
		requires(std::is_member_function_pointer_v<MethodType>) \
	WidgetArgsType& EventName(UserClass* InUserObject, MethodType InFunc, VarTypes&&... Vars) \
	{ \
		_##EventName = DelegateName::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass, typename MethodType, typename... VarTypes> \
		requires(std::is_member_function_pointer_v<MethodType>) \
	WidgetArgsType& EventName(const TSharedRef<UserClass>& InUserObject, MethodType InFunc, VarTypes&&... Vars) \
	{ \
		_##EventName = DelegateName::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename UserClass, typename MethodType, typename... VarTypes> \
	WidgetArgsType& EventName##_Raw(UserClass* InUserObject, MethodType InFunc, VarTypes&&... Vars) \
	{ \
		_##EventName = DelegateName::CreateRaw(InUserObject, InFunc, Forward<VarTypes>(Vars)...); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename FunctorType, typename... VarTypes> \
	WidgetArgsType& EventName##_Lambda(FunctorType&& InFunctor, VarTypes&&... Vars) \
	{ \
		_##EventName = DelegateName::CreateLambda(Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	template<typename FunctionType, typename... VarTypes> \
	WidgetArgsType& EventName##_Static(FunctionType InFunc, VarTypes&&... Vars) \
	{ \
		_##EventName = DelegateName::CreateStatic(InFunc, Forward<VarTypes>(Vars)...); \
		return static_cast<WidgetArgsType&>(*this); \
	}

/** The content of a named slot; never null: an unset slot holds the null widget. */
struct TAlwaysValidWidget
{
	TSharedRef<SWidget> Widget = SNullWidget::NullWidget;
};

template<typename DeclarationType>
struct NamedSlotProperty
{
	NamedSlotProperty(DeclarationType& InOwnerDeclaration, TAlwaysValidWidget& InSlotContent)
		: OwnerDeclaration(InOwnerDeclaration)
		, SlotContent(InSlotContent)
	{
	}
	DeclarationType& operator[](const TSharedRef<SWidget>& InChild)
	{
		SlotContent.Widget = InChild;
		return OwnerDeclaration;
	}
	DeclarationType& OwnerDeclaration;
	TAlwaysValidWidget& SlotContent;
};

#define SLATE_NAMED_SLOT(DeclarationType, SlotName) \
	NamedSlotProperty<DeclarationType> SlotName() \
	{ \
		return NamedSlotProperty<DeclarationType>(*this, _##SlotName); \
	} \
	TAlwaysValidWidget _##SlotName;

#define SLATE_DEFAULT_SLOT(DeclarationType, SlotName) \
	SLATE_NAMED_SLOT(DeclarationType, SlotName) \
	DeclarationType& operator[](const TSharedRef<SWidget>& InChild) \
	{ \
		_##SlotName.Widget = InChild; \
		return static_cast<DeclarationType&>(*this); \
	}

// `+ SVerticalBox::Slot()...` appends to the slot list.
#define SLATE_SLOT_ARGUMENT(SlotType, SlotName) \
	TArray<typename SlotType::FSlotArguments> _##SlotName; \
	WidgetArgsType& operator+(typename SlotType::FSlotArguments& SlotToAdd) \
	{ \
		_##SlotName.Emplace(MoveTemp(SlotToAdd)); \
		return static_cast<WidgetArgsType&>(*this); \
	} \
	WidgetArgsType& operator+(typename SlotType::FSlotArguments&& SlotToAdd) \
	{ \
		_##SlotName.Emplace(MoveTemp(SlotToAdd)); \
		return static_cast<WidgetArgsType&>(*this); \
	}

#define SLATE_SUPPORTS_SLOT(SlotType) SLATE_SLOT_ARGUMENT(SlotType, Slots)

namespace RequiredArgs
{
	template<typename... ArgTypes>
	auto MakeRequiredArgs(ArgTypes&&... Args)
	{
		return std::tuple<std::decay_t<ArgTypes>...>(Forward<ArgTypes>(Args)...);
	}
}

template<typename WidgetType, typename RequiredArgsPayloadType>
struct TSlateDecl
{
	TSlateDecl(const ANSICHAR* InType, const ANSICHAR* InFile, int32 OnLine, RequiredArgsPayloadType&& InRequiredArgs)
		: Widget(MakeShared<WidgetType>())
		, RequiredArgs(MoveTemp(InRequiredArgs))
	{
		Widget->SetStandInType(FName(InType));
	}

	template<typename ExposeAsWidgetType>
	TSlateDecl&& Expose(TSharedPtr<ExposeAsWidgetType>& OutVarToInit) &&
	{
		OutVarToInit = Widget;
		return MoveTemp(*this);
	}
	template<typename ExposeAsWidgetType>
	TSlateDecl&& Expose(TSharedRef<ExposeAsWidgetType>& OutVarToInit) &&
	{
		OutVarToInit = Widget;
		return MoveTemp(*this);
	}
	template<typename ExposeAsWidgetType>
	TSlateDecl&& Expose(TWeakPtr<ExposeAsWidgetType>& OutVarToInit) &&
	{
		OutVarToInit = Widget;
		return MoveTemp(*this);
	}

	TSharedRef<WidgetType> operator<<=(const typename WidgetType::FArguments& InArgs) &&
	{
		Widget->SWidgetConstruct(InArgs);
		std::apply([this, &InArgs](auto&... Extra) { Widget->Construct(InArgs, Extra...); }, RequiredArgs);
		return Widget;
	}

	TSharedRef<WidgetType> Widget;
	RequiredArgsPayloadType RequiredArgs;
};

template<typename WidgetType, typename RequiredArgsPayloadType>
TSlateDecl<WidgetType, RequiredArgsPayloadType> MakeTDecl(const ANSICHAR* InType, const ANSICHAR* InFile, int32 OnLine, RequiredArgsPayloadType&& InRequiredArgs)
{
	return TSlateDecl<WidgetType, RequiredArgsPayloadType>(InType, InFile, OnLine, Forward<RequiredArgsPayloadType>(InRequiredArgs));
}

#define TYPENAME_OUTSIDE_TEMPLATE

#define SNew(WidgetType, ...) \
	MakeTDecl<WidgetType>(#WidgetType, __FILE__, __LINE__, RequiredArgs::MakeRequiredArgs(__VA_ARGS__)) <<= TYPENAME_OUTSIDE_TEMPLATE WidgetType::FArguments()

#define SAssignNew(ExposeAs, WidgetType, ...) \
	MakeTDecl<WidgetType>(#WidgetType, __FILE__, __LINE__, RequiredArgs::MakeRequiredArgs(__VA_ARGS__)).Expose(ExposeAs) <<= TYPENAME_OUTSIDE_TEMPLATE WidgetType::FArguments()
