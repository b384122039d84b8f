#include "platform/Log.h"

// Debug lines, several for each frame grabbed, are for those who ask with QT_LOGGING_RULES.
Q_LOGGING_CATEGORY(lcTessarine, "tessarine", QtInfoMsg)
