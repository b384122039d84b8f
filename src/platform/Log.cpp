#include "platform/Log.h"

Q_LOGGING_CATEGORY(lcTessarine, "tessarine")
