// Parser and both writers on a generated document of about 10 MB. Throughput counts characters of JSON text.
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"

#include <benchmark/benchmark.h>

namespace
{
	// Shaped like the plugin's traffic: a project tree of nested folders, and Blueprint-like
	// records with names, paths with escapes, numbers, flags and small arrays.
	TSharedRef<FJsonObject> MakeDocument(int32 RecordCount)
	{
		TSharedRef<FJsonObject> Root = MakeShared<FJsonObject>();
		TArray<TSharedPtr<FJsonValue>> Records;
		for (int32 Index = 0; Index < RecordCount; ++Index)
		{
			TSharedPtr<FJsonObject> Record = MakeShared<FJsonObject>();
			Record->SetStringField(TEXT("VariableName"), FString::Printf(TEXT("Variable_%d"), Index));
			Record->SetStringField(TEXT("Path"), FString::Printf(TEXT("C:\\Project\\Content\\Blueprints\\BP_Actor_%d.uasset"), Index));
			Record->SetStringField(TEXT("Tooltip"), TEXT("Health of the \"player\" pawn,\nin hit points (\u00e9t\u00e9)."));
			Record->SetNumberField(TEXT("Value"), Index * 0.37);
			Record->SetNumberField(TEXT("Count"), Index);
			Record->SetBoolField(TEXT("ExposeOnSpawn"), Index % 2 == 0);
			TSharedPtr<FJsonObject> Type = MakeShared<FJsonObject>();
			Type->SetStringField(TEXT("PinCategory"), TEXT("real"));
			Type->SetStringField(TEXT("PinSubCategory"), TEXT("double"));
			Type->SetBoolField(TEXT("bIsReference"), false);
			Record->SetObjectField(TEXT("Type"), Type);
			Record->SetArrayField(TEXT("Tags"), { MakeShared<FJsonValueString>(TEXT("Gameplay")), MakeShared<FJsonValueString>(TEXT("Combat")), MakeShared<FJsonValueNumber>(Index % 7) });
			Records.Add(MakeShared<FJsonValueObject>(Record));
		}
		Root->SetArrayField(TEXT("Records"), MoveTemp(Records));
		return Root;
	}

	template<typename PrintPolicy>
	FString Write(const TSharedRef<FJsonObject>& Document)
	{
		FString Out;
		FJsonSerializer::Serialize(Document, TJsonWriterFactory<TCHAR, PrintPolicy>::Create(&Out));
		return Out;
	}

	// About 10 MB of pretty text (the condensed form is a little smaller).
	constexpr int32 RecordCount = 27000;

	const TSharedRef<FJsonObject>& Document()
	{
		static const TSharedRef<FJsonObject> Cached = MakeDocument(RecordCount);
		return Cached;
	}

	void BM_ParsePretty(benchmark::State& State)
	{
		const FString Text = Write<TPrettyJsonPrintPolicy<TCHAR>>(Document());
		for (auto _ : State)
		{
			TSharedPtr<FJsonObject> Parsed;
			const bool bOk = FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Parsed);
			benchmark::DoNotOptimize(bOk);
			// Freeing the tree isn't parsing; it is timed on its own below.
			State.PauseTiming();
			Parsed.Reset();
			State.ResumeTiming();
		}
		State.SetBytesProcessed(State.iterations() * Text.Len());
		State.counters["chars"] = static_cast<double>(Text.Len());
	}

	void BM_FreeParsedTree(benchmark::State& State)
	{
		const FString Text = Write<TPrettyJsonPrintPolicy<TCHAR>>(Document());
		for (auto _ : State)
		{
			State.PauseTiming();
			TSharedPtr<FJsonObject> Parsed;
			FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Parsed);
			State.ResumeTiming();
			Parsed.Reset();
		}
		State.SetBytesProcessed(State.iterations() * Text.Len());
	}

	void BM_WritePretty(benchmark::State& State)
	{
		int64 Length = 0;
		for (auto _ : State)
		{
			const FString Text = Write<TPrettyJsonPrintPolicy<TCHAR>>(Document());
			Length = Text.Len();
			benchmark::DoNotOptimize(Length);
		}
		State.SetBytesProcessed(State.iterations() * Length);
		State.counters["chars"] = static_cast<double>(Length);
	}

	void BM_WriteCondensed(benchmark::State& State)
	{
		int64 Length = 0;
		for (auto _ : State)
		{
			const FString Text = Write<TCondensedJsonPrintPolicy<TCHAR>>(Document());
			Length = Text.Len();
			benchmark::DoNotOptimize(Length);
		}
		State.SetBytesProcessed(State.iterations() * Length);
		State.counters["chars"] = static_cast<double>(Length);
	}
}

BENCHMARK(BM_ParsePretty)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FreeParsedTree)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WritePretty)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteCondensed)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
