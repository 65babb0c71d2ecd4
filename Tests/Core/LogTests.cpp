#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Misc/OutputDeviceRedirector.h"

#include <gtest/gtest.h>

namespace
{
	DEFINE_LOG_CATEGORY_STATIC(LogQuietTest, Warning, All);

	struct FCaptureDevice : FOutputDevice
	{
		TArray<FString> Lines;
		void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			Lines.Add(FString::Printf(TEXT("%s %s: %s"), *Category.ToString(), ToString(Verbosity), V));
		}
	};

	struct FScopedCapture
	{
		FCaptureDevice Device;
		FScopedCapture()
		{
			GLog->AddOutputDevice(&Device);
		}
		~FScopedCapture()
		{
			GLog->RemoveOutputDevice(&Device);
		}
	};

	bool FailingCheck(int32 Value)
	{
		return ensureMsgf(Value > 0, TEXT("value was %d"), Value);
	}
}

TEST(LogTest, CategoriesVerbosityAndEnsure)
{
	FScopedCapture Capture;
	UE_LOG(LogTemp, Warning, TEXT("File %s has %d lines"), TEXT("A.cpp"), 3);
	UE_LOG(LogQuietTest, Log, TEXT("suppressed below the category's verbosity"));
	UE_LOG(LogQuietTest, Error, TEXT("kept"));
	ASSERT_EQ(Capture.Device.Lines.Num(), 2);
	EXPECT_EQ(Capture.Device.Lines[0], TEXT("LogTemp Warning: File A.cpp has 3 lines"));
	EXPECT_EQ(Capture.Device.Lines[1], TEXT("LogQuietTest Error: kept"));

	// A failed ensure logs once per call site and execution goes on.
	EXPECT_FALSE(FailingCheck(-1));
	EXPECT_FALSE(FailingCheck(-2));
	EXPECT_TRUE(FailingCheck(1));
	ASSERT_EQ(Capture.Device.Lines.Num(), 3);
	EXPECT_TRUE(Capture.Device.Lines[2].Contains(TEXT("value was -1")));
}

TEST(FTextTest, LiteralsKeepNamespaceAndKey)
{
	const FText Label = NSLOCTEXT("FTavrineModule", "Tavrine_Override", "Tavrine");
	EXPECT_EQ(Label.ToString(), TEXT("Tavrine"));
	EXPECT_EQ(FTextInspector::GetNamespace(Label).GetValue(), TEXT("FTavrineModule"));
	EXPECT_EQ(FTextInspector::GetKey(Label).GetValue(), TEXT("Tavrine_Override"));
	EXPECT_TRUE(FText().IsEmpty());
	EXPECT_TRUE(FText::GetEmpty().IsEmpty());
	EXPECT_FALSE(FTextInspector::GetKey(FText::FromString(TEXT("x"))).IsSet());
	EXPECT_EQ(FText::Format(FText::FromString(TEXT("{0} of {1}")), FText::AsNumber(2), FText::AsNumber(3)).ToString(), TEXT("2 of 3"));
}
