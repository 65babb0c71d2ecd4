// The editor's transactions: what Modify records, the queue with its titles, and undo and redo in order.
#include "ObjectTestTypes.h"
#include "CoreUObject.h"
#include "Editor.h"
#include "Editor/Transactor.h"
#include "Editor/TransBuffer.h"
#include "ScopedTransaction.h"
#include "UnrealEdModule.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	class TransactionTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			ASSERT_NE(FUnrealEdModule::StartEditorEngine(), nullptr);
			GEditor->ResetTransaction(FText::FromString(TEXT("Test")));
			Door = NewObject<AObjectTestDoor>(CreatePackage(TEXT("/Game/Transactions/Door")), FName(TEXT("Door")), RF_Public | RF_Standalone | RF_Transactional);
		}

		static FString TitleAt(int32 Index)
		{
			const FTransaction* Transaction = GEditor->Trans->GetTransaction(Index);
			return Transaction != nullptr ? Transaction->GetTitle().ToString() : FString(TEXT("<none>"));
		}

		AObjectTestDoor* Door = nullptr;
	};
}

TEST_F(TransactionTest, UndoPutsBackEveryRecordedObjectNewestTransactionFirst)
{
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Open wide")));
		Door->Modify();
		Door->OpenAngle = 120.0f;
		Door->Tags.Add(FName(TEXT("Wide")));
		Door->Panel->Modify();
		Door->Panel->SetRelativeLocation(FVector(0.0, 0.0, 10.0));
		// Only the first state of an object in a transaction counts.
		Door->Modify();
		Door->OpenAngle = 130.0f;
	}
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Close")));
		Door->Modify();
		Door->OpenAngle = 0.0f;
		Door->Tags.Empty();
	}
	ASSERT_EQ(GEditor->Trans->GetQueueLength(), 2);
	EXPECT_EQ(TitleAt(0), TEXT("Open wide"));
	EXPECT_EQ(TitleAt(1), TEXT("Close"));
	EXPECT_EQ(GEditor->Trans->GetTransaction(2), nullptr);
	EXPECT_EQ(GEditor->Trans->GetTransaction(0)->GetRecordCount(), 2);
	EXPECT_TRUE(GEditor->Trans->CanUndo(nullptr));
	EXPECT_TRUE(Door->GetOutermost()->IsDirty());

	ASSERT_TRUE(GEditor->UndoTransaction(true));
	EXPECT_EQ(Door->OpenAngle, 130.0f);
	EXPECT_EQ(Door->Tags, (TArray<FName>{FName(TEXT("Wide"))}));
	EXPECT_EQ(GEditor->Trans->GetUndoCount(), 1);
	ASSERT_TRUE(GEditor->UndoTransaction(true));
	EXPECT_EQ(Door->OpenAngle, 90.0f);
	EXPECT_EQ(Door->Tags.Num(), 0);
	EXPECT_TRUE(Door->Panel->GetRelativeLocation().IsZero());
	FText Reason;
	EXPECT_FALSE(GEditor->Trans->CanUndo(&Reason));
	EXPECT_EQ(Reason.ToString(), TEXT("(Nothing to undo)"));
	EXPECT_FALSE(GEditor->UndoTransaction(true));
	// Undone transactions stay in the queue until something new is done.
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 2);

	ASSERT_TRUE(GEditor->RedoTransaction());
	EXPECT_EQ(Door->OpenAngle, 130.0f);
	EXPECT_TRUE(Door->Panel->GetRelativeLocation().Equals(FVector(0.0, 0.0, 10.0)));
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Paint")));
		Door->Modify();
		Door->OpenAngle = 45.0f;
	}
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 2);
	EXPECT_EQ(TitleAt(1), TEXT("Paint"));
	EXPECT_FALSE(GEditor->Trans->CanRedo());

	// Without the chance to redo, undone transactions leave the queue.
	ASSERT_TRUE(GEditor->UndoTransaction(false));
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 1);
	EXPECT_EQ(Door->OpenAngle, 130.0f);
}

TEST_F(TransactionTest, NestedTransactionsJoinTheOuterOneAndRepeatedOnesStaySeparate)
{
	{
		FScopedTransaction Outer(FText::FromString(TEXT("Tavrine Transaction 1")));
		Door->Modify();
		Door->OpenAngle = 10.0f;
		{
			FScopedTransaction Inner(FText::FromString(TEXT("Inner")));
			EXPECT_TRUE(Inner.IsOutstanding());
			Door->Panel->Modify();
			Door->Panel->CastShadow = false;
		}
		FText Reason;
		EXPECT_FALSE(GEditor->Trans->CanUndo(&Reason));
		EXPECT_EQ(Reason.ToString(), TEXT("(Can't undo while action is in progress)"));
		EXPECT_EQ(GEditor->GetTransactionName().ToString(), TEXT("Tavrine Transaction 1"));
	}
	for (int32 Repeat = 0; Repeat < 2; ++Repeat)
	{
		FScopedTransaction Again(FText::FromString(TEXT("Tavrine Transaction 1")));
		Door->Modify();
		Door->OpenAngle += 1.0f;
	}
	ASSERT_EQ(GEditor->Trans->GetQueueLength(), 3);
	EXPECT_EQ(TitleAt(0), TEXT("Tavrine Transaction 1"));
	EXPECT_EQ(GEditor->Trans->GetTransaction(0)->GetRecordCount(), 2);
	EXPECT_EQ(Door->OpenAngle, 12.0f);
	while (GEditor->Trans->CanUndo())
	{
		GEditor->UndoTransaction(true);
	}
	EXPECT_EQ(Door->OpenAngle, 90.0f);
	EXPECT_TRUE(Door->Panel->CastShadow);

	// A cancelled inner level takes back only what it recorded, however deep it sits.
	{
		FScopedTransaction Outer(FText::FromString(TEXT("Keep")));
		Door->Modify();
		Door->OpenAngle = 30.0f;
		FScopedTransaction Middle(FText::FromString(TEXT("Keep too")));
		Door->Frame->Modify();
		FScopedTransaction Inner(FText::FromString(TEXT("Keep three")));
		Door->Panel->Modify();
		FScopedTransaction Innermost(FText::FromString(TEXT("Drop")));
		NewObject<AObjectTestDoor>(Door->GetOutermost(), NAME_None, RF_Transactional)->Modify();
		Innermost.Cancel();
		EXPECT_FALSE(Innermost.IsOutstanding());
		EXPECT_EQ(GEditor->Trans->GetTransaction(GEditor->Trans->GetQueueLength() - 1)->GetRecordCount(), 3);
		Inner.Cancel();
		EXPECT_EQ(GEditor->Trans->GetTransaction(GEditor->Trans->GetQueueLength() - 1)->GetRecordCount(), 2);
	}
	EXPECT_EQ(TitleAt(GEditor->Trans->GetQueueLength() - 1), TEXT("Keep"));

	// A transaction that changed nothing, recorded objects or not, doesn't reach the queue.
	const int32 Length = GEditor->Trans->GetQueueLength();
	{
		FScopedTransaction Idle(FText::FromString(TEXT("Tavrine Transaction 2")));
		Door->Modify();
		Door->Panel->Modify();
		Door->OpenAngle += 1.0f;
		Door->OpenAngle -= 1.0f;
	}
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), Length);
	EXPECT_EQ(TitleAt(Length - 1), TEXT("Keep"));
}

TEST_F(TransactionTest, OnlyTransactionalObjectsInAnOpenTransactionAreRecorded)
{
	AObjectTestDoor* Plain = NewObject<AObjectTestDoor>(CreatePackage(TEXT("/Game/Transactions/Plain")), FName(TEXT("Plain")), RF_Standalone);
	Door->Modify();
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 0);
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Mixed")));
		EXPECT_FALSE(Plain->Modify());
		EXPECT_TRUE(Door->Modify());
		EXPECT_TRUE(Door->Rename(TEXT("Renamed")));
		Plain->OpenAngle = 1.0f;
	}
	EXPECT_FALSE(GEditor->Trans->GetTransaction(0)->ContainsObject(Plain));
	EXPECT_EQ(Door->GetName(), TEXT("Renamed"));
	// What only a transaction refers to survives garbage collection, so that undo can bring it back.
	Door->ClearFlags(RF_Standalone);
	CollectGarbage(RF_Standalone);
	ASSERT_TRUE(GEditor->UndoTransaction(true));
	EXPECT_EQ(Door->GetName(), TEXT("Door"));
	EXPECT_EQ(Plain->OpenAngle, 1.0f);
	{
		FScopedTransaction NotRecorded(FText::FromString(TEXT("Skipped")), false);
		EXPECT_FALSE(NotRecorded.IsOutstanding());
	}
	UEditorEngine* Editor = GEditor;
	GEditor = nullptr;
	{
		FScopedTransaction WithoutEditor(FText::FromString(TEXT("Nothing")));
		EXPECT_FALSE(WithoutEditor.IsOutstanding());
		EXPECT_FALSE(Door->Modify());
	}
	GEditor = Editor;
}

TEST_F(TransactionTest, BarriersCancelsAndContextsFollowTheQueue)
{
	int32 Undos = 0;
	FString LastUndone;
	UTransBuffer* Buffer = Cast<UTransBuffer>(GEditor->Trans);
	ASSERT_NE(Buffer, nullptr);
	const FDelegateHandle Handle = Buffer->OnUndo().AddLambda([&](const FTransactionContext& Context, bool bSucceeded)
	{
		++Undos;
		LastUndone = Context.Title.ToString();
	});
	for (const TCHAR* Title : {TEXT("One"), TEXT("Two"), TEXT("Three")})
	{
		FScopedTransaction Transaction(FText::FromString(Title));
		Door->Modify();
		Door->Tags.Add(FName(Title));
	}
	EXPECT_EQ(GEditor->Trans->GetUndoContext().Title.ToString(), TEXT("Three"));
	// A barrier stops undo at the place it was set.
	GEditor->Trans->SetUndoBarrier();
	FText Reason;
	EXPECT_FALSE(GEditor->Trans->CanUndo(&Reason));
	EXPECT_EQ(Reason.ToString(), TEXT("(Hit Undo barrier; can't undo any further)"));
	GEditor->Trans->RemoveUndoBarrier();
	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(LastUndone, TEXT("Three"));
	EXPECT_EQ(GEditor->Trans->GetRedoContext().Title.ToString(), TEXT("Three"));
	EXPECT_EQ(Door->Tags, (TArray<FName>{FName(TEXT("One")), FName(TEXT("Two"))}));

	// Cancelling the whole open transaction drops it, what it changed stays changed, and what was undone
	// before it can be redone again.
	{
		FScopedTransaction Dropped(FText::FromString(TEXT("Dropped")));
		Door->Modify();
		Door->OpenAngle = 5.0f;
		EXPECT_EQ(GEditor->Trans->GetQueueLength(), 3);
		EXPECT_EQ(TitleAt(2), TEXT("Dropped"));
		Dropped.Cancel();
	}
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 3);
	EXPECT_EQ(Door->OpenAngle, 5.0f);
	EXPECT_EQ(GEditor->Trans->GetRedoContext().Title.ToString(), TEXT("Three"));
	// Once a new step ends, the undone one is gone for good.
	{
		FScopedTransaction Kept(FText::FromString(TEXT("Kept")));
		Door->Modify();
		Door->OpenAngle = 6.0f;
	}
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 3);
	EXPECT_EQ(TitleAt(2), TEXT("Kept"));
	EXPECT_FALSE(GEditor->Trans->CanRedo());
	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Door->OpenAngle, 5.0f);
	ASSERT_TRUE(GEditor->UndoTransaction());
	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Door->Tags.Num(), 0);
	EXPECT_EQ(Undos, 4);
	Buffer->OnUndo().Remove(Handle);
	GEditor->ResetTransaction(FText::FromString(TEXT("Done")));
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), 0);
	EXPECT_FALSE(GEditor->Trans->IsObjectInTransactionBuffer(Door));
}

TEST_F(TransactionTest, ContainersReferencesAndPropertiesMadeAtRunTimeAreRestored)
{
	UClass* Class = NewObject<UClass>(CreatePackage(TEXT("/Game/Transactions/BP_Gate")), UClass::StaticClass(), FName(TEXT("BP_Gate_C")), RF_Public | RF_Standalone);
	Class->SetSuperStruct(AObjectTestDoor::StaticClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint;
	FArrayProperty* Codes = new FArrayProperty(Class, FName(TEXT("Codes")), RF_Public);
	Codes->AddCppProperty(new FStrProperty(Codes, FName(TEXT("Codes")), RF_Public));
	Class->AddCppProperty(Codes);
	Class->StaticLink(true);
	AObjectTestDoor* Gate = Cast<AObjectTestDoor>(NewObject<UObject>(CreatePackage(TEXT("/Game/Transactions/Gate")), Class, FName(TEXT("Gate")), RF_Public | RF_Standalone | RF_Transactional));
	ASSERT_NE(Gate, nullptr);
	UStaticMeshComponent* Extra = NewObject<UStaticMeshComponent>(Gate, FName(TEXT("Extra")), RF_Transactional);
	EXPECT_NE(Codes->ImportText_InContainer(TEXT("(\"1234\")"), Gate, Gate, PPF_None), nullptr);
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Rebuild")));
		Gate->Modify();
		Gate->InstanceComponents.Add(Extra);
		Gate->RootComponent = Extra;
		EXPECT_NE(Codes->ImportText_InContainer(TEXT("(\"9999\",\"0000\")"), Gate, Gate, PPF_None), nullptr);
	}
	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Gate->InstanceComponents.Num(), 0);
	EXPECT_EQ(Gate->RootComponent, Gate->Frame);
	FString Text;
	Codes->ExportText_InContainer(0, Text, Gate, Gate, Gate, PPF_None);
	EXPECT_EQ(Text, TEXT("(\"1234\")"));
	ASSERT_TRUE(GEditor->RedoTransaction());
	EXPECT_EQ(Gate->RootComponent, Extra);
	Text.Empty();
	Codes->ExportText_InContainer(0, Text, Gate, Gate, Gate, PPF_None);
	EXPECT_EQ(Text, TEXT("(\"9999\",\"0000\")"));
}
