// Garbage collection: what keeps objects alive, what dies, and the references that learn of it.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "UObject/GCObject.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	class FHolder final : public FGCObject
	{
	public:
		void AddReferencedObjects(FReferenceCollector& Collector) override
		{
			Collector.AddReferencedObject(Held);
		}
		FString GetReferencerName() const override
		{
			return TEXT("FHolder");
		}

		UObject* Held = nullptr;
	};

	bool IsAlive(const TWeakObjectPtr<UObject>& Weak)
	{
		return Weak.Get(true) != nullptr;
	}
}

TEST(GarbageCollection, ReachableObjectsSurviveAndTheRestIsDestroyed)
{
	UReflectionTestAllKinds* Root = NewObject<UReflectionTestAllKinds>(GetTransientPackage(), FName(TEXT("GCRoot")));
	Root->AddToRoot();
	UObject* ByProperty = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* ByArray = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* ByMapValue = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* ByStruct = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* ByInterface = NewObject<UReflectionTestChild>(GetTransientPackage());
	// A reachable object keeps its outers alive; being inside a reachable object keeps nothing alive.
	UObject* ByOuter = NewObject<UReflectionTestChild>(NewObject<UReflectionTestChild>(GetTransientPackage(), FName(TEXT("Middle"))));
	UObject* StrayInner = NewObject<UReflectionTestChild>(Root, FName(TEXT("Stray")));
	UObject* OnlyWeak = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* OnlySoft = NewObject<UReflectionTestChild>(GetTransientPackage());
	UObject* Standalone = NewObject<UReflectionTestChild>(GetTransientPackage(), NAME_None, RF_Standalone);
	FHolder Holder;
	Holder.Held = NewObject<UReflectionTestChild>(GetTransientPackage());
	Root->Object = ByProperty;
	Root->Objects.Add(ByArray);
	Root->Objects.Add(ByOuter);
	Root->Named.Add(FName(TEXT("Key")), ByMapValue);
	Root->Inner.Reference = ByStruct;
	Root->Greeter = ByInterface;
	Root->Weak = OnlyWeak;
	Root->Soft = OnlySoft;

	const TArray<TWeakObjectPtr<UObject>> Kept = {Root, ByProperty, ByArray, ByMapValue, ByStruct, ByInterface, ByOuter, ByOuter->GetOuter(), Holder.Held, Standalone};
	const TWeakObjectPtr<UObject> WeakOnly = OnlyWeak;
	const TWeakObjectPtr<UObject> Stray = StrayInner;
	const TWeakObjectPtr<UObject> SoftOnly = OnlySoft;
	CollectGarbage(RF_Standalone);
	for (const TWeakObjectPtr<UObject>& Object : Kept)
	{
		EXPECT_TRUE(IsAlive(Object));
	}
	EXPECT_FALSE(IsAlive(WeakOnly));
	EXPECT_FALSE(IsAlive(SoftOnly));
	EXPECT_FALSE(IsAlive(Stray));
	EXPECT_TRUE(WeakOnly.IsStale());
	EXPECT_EQ(Root->Weak.Get(), nullptr);
	// A soft reference keeps its path when the object goes.
	EXPECT_FALSE(Root->Soft.IsNull());
	EXPECT_EQ(Root->Soft.Get(), nullptr);
	// Native types and class default objects stay.
	EXPECT_NE(StaticFindObject(UClass::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestAllKinds")), nullptr);
	EXPECT_NE(GetDefault<UReflectionTestAllKinds>(), nullptr);

	// Without the keep flags a stand-alone object is like any other.
	CollectGarbage(RF_NoFlags);
	EXPECT_FALSE(IsAlive(Kept.Last()));
	Holder.Held = nullptr;
	Root->RemoveFromRoot();
	CollectGarbage(RF_NoFlags);
	for (const TWeakObjectPtr<UObject>& Object : Kept)
	{
		EXPECT_FALSE(IsAlive(Object));
	}
}

TEST(GarbageCollection, ObjectsMarkedAsGarbageDieAndReferencesToThemAreCleared)
{
	UReflectionTestAllKinds* Root = NewObject<UReflectionTestAllKinds>(GetTransientPackage());
	Root->AddToRoot();
	UReflectionTestChild* Doomed = NewObject<UReflectionTestChild>(GetTransientPackage());
	Root->Object = Doomed;
	Root->Objects = {Doomed, Doomed};
	Root->Inner.Reference = Doomed;
	Root->Tags.Add(FName(TEXT("Kept")));
	Root->Named.Add(FName(TEXT("Doomed")), Doomed);
	const TWeakObjectPtr<UObject> Weak = Doomed;
	Doomed->MarkAsGarbage();
	EXPECT_FALSE(IsValid(Doomed));
	EXPECT_EQ(Weak.Get(), nullptr);
	EXPECT_NE(Weak.Get(true), nullptr);

	CollectGarbage(RF_NoFlags);
	EXPECT_FALSE(IsAlive(Weak));
	EXPECT_EQ(Root->Object, nullptr);
	EXPECT_EQ(Root->Objects.Num(), 2);
	EXPECT_EQ(Root->Objects[0], nullptr);
	EXPECT_EQ(Root->Inner.Reference, nullptr);
	EXPECT_EQ(Root->Named.FindRef(FName(TEXT("Doomed"))), nullptr);
	Root->RemoveFromRoot();
}

TEST(GarbageCollection, DuplicatesPointAtTheirOwnCopies)
{
	UReflectionTestAllKinds* Source = NewObject<UReflectionTestAllKinds>(CreatePackage(TEXT("/Game/GC/Duplicate")), FName(TEXT("Source")));
	UReflectionTestChild* Inner = NewObject<UReflectionTestChild>(Source, FName(TEXT("Inner")));
	UReflectionTestChild* Outside = NewObject<UReflectionTestChild>(GetTransientPackage());
	Source->Object = Inner;
	Source->RawPointer = Outside;
	Source->Int = 12;
	UReflectionTestAllKinds* Copy = DuplicateObject(Source, GetTransientPackage(), FName(TEXT("Copy")));
	ASSERT_NE(Copy, nullptr);
	EXPECT_EQ(Copy->Int, 12);
	ASSERT_NE(Copy->Object, nullptr);
	EXPECT_NE(Copy->Object, Inner);
	EXPECT_EQ(Copy->Object->GetOuter(), Copy);
	EXPECT_EQ(Copy->RawPointer, Outside);
}

TEST(GarbageCollection, WeakReferencesDoNotFollowAReusedSlot)
{
	UReflectionTestChild* First = NewObject<UReflectionTestChild>();
	const TWeakObjectPtr<UReflectionTestChild> Weak = First;
	const uint32 Slot = First->GetUniqueID();
	CollectGarbage(RF_NoFlags);
	// New objects take the freed slots; the old reference must not see them.
	TArray<UObject*> Fresh;
	for (int32 Index = 0; Index < 64; ++Index)
	{
		Fresh.Add(NewObject<UReflectionTestChild>());
	}
	EXPECT_TRUE(Fresh.ContainsByPredicate([Slot](const UObject* Object) { return Object->GetUniqueID() == Slot; }));
	EXPECT_EQ(Weak.Get(), nullptr);
	EXPECT_TRUE(Weak.IsStale());
	EXPECT_NE(TWeakObjectPtr<UObject>(Fresh[0]), TWeakObjectPtr<UObject>(Fresh[1]));
}

TEST(GarbageCollection, InstancesOfAClassMadeAtRunTimeGoBeforeTheirClass)
{
	UClass* Class = NewObject<UClass>(CreatePackage(TEXT("/Game/GC/Runtime")), UClass::StaticClass(), FName(TEXT("Runtime_C")), RF_Public);
	Class->SetSuperStruct(UReflectionTestAllKinds::StaticClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint;
	FArrayProperty* Words = new FArrayProperty(Class, FName(TEXT("Words")), RF_Public);
	Words->AddCppProperty(new FStrProperty(Words, FName(TEXT("Words")), RF_Public));
	FObjectProperty* Held = new FObjectProperty(Class, FName(TEXT("Held")), RF_Public, 0, CPF_None, UObject::StaticClass());
	Class->AddCppProperty(Held);
	Class->AddCppProperty(Words);
	Class->StaticLink(true);
	UObject* Holder = NewObject<UObject>(GetTransientPackage(), Class);
	Holder->AddToRoot();
	UObject* Kept = NewObject<UReflectionTestChild>();
	Held->SetObjectPropertyValue_InContainer(Holder, Kept);
	EXPECT_NE(Words->ImportText_InContainer(TEXT("(\"a long enough string to live on the heap\",b)"), Holder, Holder, PPF_None), nullptr);
	const TWeakObjectPtr<UObject> WeakKept = Kept;
	const TWeakObjectPtr<UObject> WeakClass = Class;
	// A property added at run time keeps what it refers to alive, as a native one does.
	CollectGarbage(RF_NoFlags);
	EXPECT_TRUE(WeakKept.IsValid());
	EXPECT_TRUE(WeakClass.IsValid());
	Holder->RemoveFromRoot();
	CollectGarbage(RF_NoFlags);
	EXPECT_FALSE(WeakKept.IsValid());
	EXPECT_FALSE(WeakClass.IsValid());
}
