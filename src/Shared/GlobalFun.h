#pragma once

// All of this folder's stateless operations in namespace GlobalFun; each lives in the header of its topic.
#include "Shared/Bookmark.h"     // IWYU pragma: export
#include "Shared/FolderMaking.h" // IWYU pragma: export
#include "Shared/HostIdentity.h" // IWYU pragma: export
#include "Shared/MovieScan.h"    // IWYU pragma: export
#include "Shared/NumberText.h"   // IWYU pragma: export
#include "Shared/OutputName.h"   // IWYU pragma: export
#include "Shared/PathParts.h"    // IWYU pragma: export
#include "Shared/SizeFit.h"      // IWYU pragma: export
#include "Shared/TimeFormat.h"   // IWYU pragma: export
#include "Shared/UrlText.h"      // IWYU pragma: export
