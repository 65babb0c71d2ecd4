// The find_reference_in_all_files row of the agent's tool table: its status line, its required key,
// and the search's document as the tool's text.
#include "FindUtilsTestSupport.h"
#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

using namespace FindUtilsTest;

TEST(FindTool, ShowsItsStatusNeedsTheStringAndAnswersWithTheDocument)
{
	FObjectTestProject Project(TempRoot(), TEXT("Tool"));
	FObjectTestProject::WriteFile(Project.Dir + TEXT("Source/Game/Guard.h"), TEXT("float MaxHealth;"));
	TArray<FString> Chat;
	const FDelegateHandle ChatHandle = FTavrineInterface::Get().OnAddStatusMessageDelegate.AddLambda([&Chat](const FString& Text, const FLinearColor&, const FName&, float)
	{
		Chat.Add(Text);
	});

	FString Out;
	FAgent::Get().RunTool(Out, TEXT("Find_Reference_In_All_Files"), TEXT("t1"), MakeShared<FJsonObject>());
	EXPECT_EQ(Out, TEXT("Error: Missing required fields"));
	const TSharedRef<FJsonObject> Input = MakeShared<FJsonObject>();
	Input->SetStringField(TEXT("reference_string"), TEXT("HEALTH"));
	FAgent::Get().RunTool(Out, TEXT("find_reference_in_all_files"), TEXT("t2"), Input);
	FTavrineInterface::Get().OnAddStatusMessageDelegate.Remove(ChatHandle);

	EXPECT_EQ(Out, FTavrineFindUtils::FindInAllFiles(TEXT("HEALTH")));
	EXPECT_TRUE(Out.Contains(TEXT("\"Name\": \"Guard.h\"")));
	// The status comes first, also when the key is missing.
	EXPECT_EQ(Chat, (TArray<FString>{ TEXT("Finding Reference In All Files ..."), TEXT("Finding Reference In All Files ...") }));
}
