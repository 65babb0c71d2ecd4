// FTransaction: the recorded states of objects, swapped in and out by undo and redo.
#include "Editor/Transactor.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/UObjectGlobals.h"
#include "Misc/OutputDevice.h"

namespace
{
	// Collects what an object writes beyond its reflected properties (a graph node's pins, for one).
	class FCustomStateWriter final : public FOutputDevice
	{
	public:
		virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			Text += V;
		}
		FString Text;
	};

	FString ReadCustomState(UObject* Object)
	{
		FCustomStateWriter Writer;
		Object->ExportCustomProperties(Writer, 0);
		return MoveTemp(Writer.Text);
	}

	void WriteCustomState(UObject* Object, const FString& State)
	{
		Object->ResetCustomProperties();
		TArray<FString> Lines;
		State.ParseIntoArrayLines(Lines, true);
		for (const FString& Line : Lines)
		{
			FString Trimmed = Line.TrimStart();
			Trimmed.RemoveFromStart(TEXT("CustomProperties "));
			Object->ImportCustomProperties(*Trimmed, nullptr);
		}
	}
}

// The state of one object as it was when recorded: its reflected property values in a block laid out as
// the object itself, and its name and outer.
struct FTransaction::FObjectRecord
{
	UObject* Object = nullptr;
	UClass* Class = nullptr;
	uint8* Snapshot = nullptr;
	FName Name;
	UObject* Outer = nullptr;
	// What the object keeps outside its properties, in the text form of its package file.
	FString CustomState;
	FString StateBeforeSwap;

	void ReadStateBeforeSwap()
	{
		if (Object != nullptr)
		{
			StateBeforeSwap = ReadCustomState(Object);
		}
	}

	explicit FObjectRecord(UObject* InObject)
		: Object(InObject)
		, Class(InObject->GetClass())
		, Name(InObject->GetFName())
		, Outer(InObject->GetOuter())
		, CustomState(ReadCustomState(InObject))
	{
		const int32 Size = FMath::Max(Class->GetPropertiesSize(), 1);
		Snapshot = static_cast<uint8*>(FMemory::Malloc(static_cast<SIZE_T>(Size), static_cast<uint32>(FMath::Max(Class->GetMinAlignment(), 16))));
		FMemory::Memzero(Snapshot, static_cast<SIZE_T>(Size));
		ForEachRecordedProperty([this](FProperty* Property)
		{
			Property->InitializeValue_InContainer(Snapshot);
			Property->CopyCompleteValue_InContainer(Snapshot, Object);
		});
	}

	~FObjectRecord()
	{
		ForEachRecordedProperty([this](FProperty* Property)
		{
			Property->DestroyValue_InContainer(Snapshot);
		});
		FMemory::Free(Snapshot);
	}

	FObjectRecord(const FObjectRecord&) = delete;
	FObjectRecord& operator=(const FObjectRecord&) = delete;

	template<typename FunctionType>
	void ForEachRecordedProperty(FunctionType&& Function) const
	{
		for (FProperty* Property = Class->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			if (!Property->HasAnyPropertyFlags(CPF_NonTransactional))
			{
				Function(Property);
			}
		}
	}

	// Whether the object's state now differs from the recorded one.
	bool HasChanges() const
	{
		if (Object == nullptr || Object->GetFName() != Name || Object->GetOuter() != Outer || ReadCustomState(Object) != CustomState)
		{
			return true;
		}
		bool bChanged = false;
		ForEachRecordedProperty([this, &bChanged](FProperty* Property)
		{
			for (int32 Index = 0; Index < Property->ArrayDim && !bChanged; ++Index)
			{
				bChanged = !Property->Identical_InContainer(Object, Snapshot, Index, PPF_None);
			}
		});
		return bChanged;
	}

	// Puts the recorded state back and keeps the state it replaced, so that the next swap reverses this one.
	void Swap()
	{
		if (Object == nullptr)
		{
			return;
		}
		ForEachRecordedProperty([this](FProperty* Property)
		{
			const int32 Size = FMath::Max(Property->GetSize(), 1);
			uint8* Temporary = static_cast<uint8*>(FMemory::Malloc(static_cast<SIZE_T>(Size), static_cast<uint32>(FMath::Max(Property->GetMinAlignment(), 16))));
			FMemory::Memzero(Temporary, static_cast<SIZE_T>(Size));
			Property->InitializeValue(Temporary);
			void* Current = Property->ContainerPtrToValuePtr<void>(Object);
			void* Recorded = Property->ContainerPtrToValuePtr<void>(Snapshot);
			Property->CopyCompleteValue(Temporary, Current);
			Property->CopyCompleteValue(Current, Recorded);
			Property->CopyCompleteValue(Recorded, Temporary);
			Property->DestroyValue(Temporary);
			FMemory::Free(Temporary);
		});
		// The current state was read before any record was swapped (see ReadStateBeforeSwap): a node's text
		// names the pins of other nodes, which a swap before it may have replaced.
		if (StateBeforeSwap != CustomState)
		{
			WriteCustomState(Object, CustomState);
			CustomState = MoveTemp(StateBeforeSwap);
		}
		StateBeforeSwap.Reset();
		if (Object->GetFName() != Name || Object->GetOuter() != Outer)
		{
			const FName CurrentName = Object->GetFName();
			UObject* CurrentOuter = Object->GetOuter();
			if (Object->Rename(*Name.ToString(), Outer, REN_NonTransactional | REN_DoNotDirty | REN_ForceNoResetLoaders))
			{
				Name = CurrentName;
				Outer = CurrentOuter;
			}
		}
	}
};

FTransaction::FTransaction(const TCHAR* InContext, const FText& InTitle, bool bInFlip)
	: Id(FGuid::NewGuid())
	, Title(InTitle)
	, Context(InContext != nullptr ? InContext : TEXT(""))
	, bFlip(bInFlip)
{
}

FTransaction::~FTransaction()
{
}

bool FTransaction::IsObjectTransacting(const UObject* Object) const
{
	return ContainsObject(Object);
}

bool FTransaction::ContainsObject(const UObject* Object) const
{
	for (const TUniquePtr<FObjectRecord>& Record : Records)
	{
		if (Record->Object == Object)
		{
			return true;
		}
	}
	return false;
}

void FTransaction::SaveObject(UObject* Object)
{
	// Only the first state of an object within a transaction counts: it is what undo goes back to.
	if (Object == nullptr || Object->GetClass() == nullptr || ContainsObject(Object))
	{
		return;
	}
	Records.Add(MakeUnique<FObjectRecord>(Object));
}

bool FTransaction::IsTransient() const
{
	for (const TUniquePtr<FObjectRecord>& Record : Records)
	{
		if (Record->HasChanges())
		{
			return false;
		}
	}
	return true;
}

void FTransaction::SetPrimaryObject(UObject* Object)
{
	if (PrimaryObject == nullptr)
	{
		PrimaryObject = Object;
	}
}

void FTransaction::Apply()
{
	const int32 Start = Inc == 1 ? 0 : Records.Num() - 1;
	const int32 End = Inc == 1 ? Records.Num() : -1;
	TArray<UObject*> Changed;
	for (int32 Index = Start; Index != End; Index += Inc)
	{
		if (UObject* Object = Records[Index]->Object; Object != nullptr && !Changed.Contains(Object))
		{
			Changed.Add(Object);
		}
	}
	for (UObject* Object : Changed)
	{
		Object->PreEditUndo();
	}
	for (const TUniquePtr<FObjectRecord>& Record : Records)
	{
		Record->ReadStateBeforeSwap();
	}
	for (int32 Index = Start; Index != End; Index += Inc)
	{
		Records[Index]->Swap();
	}
	for (UObject* Object : Changed)
	{
		Object->PostEditUndo();
		Object->MarkPackageDirty();
	}
	if (bFlip)
	{
		Inc = -Inc;
	}
}

void FTransaction::Finalize()
{
}

void FTransaction::BeginOperation()
{
	OperationId = FGuid::NewGuid();
}

void FTransaction::EndOperation()
{
	OperationId.Invalidate();
}

FTransactionContext FTransaction::GetContext() const
{
	return FTransactionContext(Id, OperationId, Title, *Context, PrimaryObject);
}

void FTransaction::GetTransactionObjects(TArray<UObject*>& Objects) const
{
	Objects.Reset();
	for (const TUniquePtr<FObjectRecord>& Record : Records)
	{
		if (Record->Object != nullptr)
		{
			Objects.AddUnique(Record->Object);
		}
	}
}

void FTransaction::RemoveRecords(int32 Count)
{
	Count = FMath::Clamp(Count, 0, Records.Num());
	Records.RemoveAt(Records.Num() - Count, Count);
}

void FTransaction::AddReferencedObjects(FReferenceCollector& Collector)
{
	Collector.AddReferencedObject(PrimaryObject);
	for (TUniquePtr<FObjectRecord>& Record : Records)
	{
		Collector.AddReferencedObject(Record->Object);
		Collector.AddReferencedObject(Record->Outer);
		Collector.AddReferencedObject(Record->Class);
		if (Record->Class != nullptr)
		{
			Collector.AddPropertyReferences(Record->Class, Record->Snapshot, Record->Object);
		}
	}
}
