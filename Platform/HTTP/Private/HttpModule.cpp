#include "HttpModule.h"

#include "Curl/CurlHttpManager.h"
#include "Curl/CurlHttpRequest.h"
#include "HttpLog.h"

DEFINE_LOG_CATEGORY(LogHttp);

FHttpModule& FHttpModule::Get()
{
	// Never destroyed: requests may still complete while the process winds down, and the
	// manager's ticker must not outlive the core ticker's own static.
	static FHttpModule* const Module = new FHttpModule();
	return *Module;
}

FHttpModule::FHttpModule()
	: HttpManager(MakeUnique<FCurlHttpManager>())
{
}

FHttpModule::~FHttpModule() = default;

TSharedRef<IHttpRequest, ESPMode::ThreadSafe> FHttpModule::CreateRequest()
{
	return MakeShared<FCurlHttpRequest, ESPMode::ThreadSafe>();
}

FHttpManager& FHttpModule::GetHttpManager()
{
	return *HttpManager;
}
