#pragma once

#include "GenericPlatform/GenericPlatformFile.h"
