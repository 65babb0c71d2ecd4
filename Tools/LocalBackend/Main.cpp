// tavrine-backend: the local HTTPS backend, run as a program (see README.md).

#include "LocalBackend.h"
#include "TestCertificate.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include <pthread.h>
#include <sys/stat.h>

namespace
{
	const char* const Usage =
		"Usage: tavrine-backend --scenario FILE --cert FILE --key FILE [options]\n"
		"\n"
		"  --scenario FILE   turns to answer with (JSON, see README.md)\n"
		"  --cert FILE       PEM certificate; made (self-signed) together with --key if neither exists\n"
		"  --key FILE        PEM private key of the certificate\n"
		"  --port N          port on 127.0.0.1; 0 picks a free one (default 8443)\n"
		"  --api-key KEY     require this \"x-api-key\" (401 otherwise); any key is accepted without it\n"
		"  --record FILE     write every request received to FILE as JSON lines (emptied at start)\n";

	bool FileExists(const std::string& Path)
	{
		struct stat Info;
		return stat(Path.c_str(), &Info) == 0;
	}

	int Fail(const std::string& Message)
	{
		std::cerr << "tavrine-backend: " << Message << "\n";
		return 2;
	}
}

int main(int ArgumentCount, char** Arguments)
{
	FLocalBackendOptions Options;
	Options.Port = 8443;
	std::string ScenarioFile;
	for (int Index = 1; Index < ArgumentCount; ++Index)
	{
		const std::string Name = Arguments[Index];
		if (Name == "--help" || Name == "-h")
		{
			std::cout << Usage;
			return 0;
		}
		const bool bKnown = Name == "--scenario" || Name == "--cert" || Name == "--key" || Name == "--api-key"
			|| Name == "--record" || Name == "--port";
		if (!bKnown)
		{
			return Fail("unknown option '" + Name + "'\n\n" + Usage);
		}
		if (Index + 1 >= ArgumentCount)
		{
			return Fail("'" + Name + "' needs a value\n\n" + Usage);
		}
		const std::string Value = Arguments[++Index];
		if (Name == "--scenario")
		{
			ScenarioFile = Value;
		}
		else if (Name == "--cert")
		{
			Options.CertFile = Value;
		}
		else if (Name == "--key")
		{
			Options.KeyFile = Value;
		}
		else if (Name == "--api-key")
		{
			Options.ApiKey = Value;
		}
		else if (Name == "--record")
		{
			Options.RecordFile = Value;
		}
		else if (Name == "--port")
		{
			char* End = nullptr;
			const long Port = std::strtol(Value.c_str(), &End, 10);
			if (Value.empty() || *End != '\0' || Port < 0 || Port > 65535)
			{
				return Fail("bad port '" + Value + "'");
			}
			Options.Port = static_cast<uint16_t>(Port);
		}
	}
	if (ScenarioFile.empty() || Options.CertFile.empty() || Options.KeyFile.empty())
	{
		return Fail(std::string("--scenario, --cert and --key are required\n\n") + Usage);
	}

	std::string Error;
	if (!LoadScenarioFile(ScenarioFile, Options.Scenario, Error))
	{
		return Fail(Error);
	}
	const bool bCertExists = FileExists(Options.CertFile);
	const bool bKeyExists = FileExists(Options.KeyFile);
	if (!bCertExists && !bKeyExists)
	{
		if (!WriteSelfSignedCertificate(Options.CertFile, Options.KeyFile, Error))
		{
			return Fail("cannot make a certificate: " + Error);
		}
		std::cout << "Made a self-signed certificate: " << Options.CertFile << " (trust it as an extra CA file)" << std::endl;
	}
	else if (bCertExists != bKeyExists)
	{
		return Fail("only one of '" + Options.CertFile + "' and '" + Options.KeyFile + "' exists; give both or neither");
	}

	// Block the stop signals before any thread starts, so that only sigwait below takes them.
	sigset_t StopSignals;
	sigemptyset(&StopSignals);
	sigaddset(&StopSignals, SIGINT);
	sigaddset(&StopSignals, SIGTERM);
	pthread_sigmask(SIG_BLOCK, &StopSignals, nullptr);

	FLocalBackend Backend;
	if (!Backend.Start(Options, Error))
	{
		return Fail(Error);
	}
	std::cout << "Listening on https://127.0.0.1:" << Backend.GetPort() << " with " << Options.Scenario.Turns.size()
		<< " scenario turn(s); Ctrl+C stops." << std::endl;

	int Signal = 0;
	sigwait(&StopSignals, &Signal);
	Backend.Stop();
	std::cout << "Stopped after " << Backend.GetRequestCount() << " request(s)." << std::endl;
	return 0;
}
