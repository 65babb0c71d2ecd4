#pragma once

#include "CoreMinimal.h"
#include "HttpManager.h"
#include "HttpModule.h"
#include "PlatformHttp.h"
#include "Interfaces/IHttpRequest.h"
#include "Interfaces/IHttpResponse.h"
