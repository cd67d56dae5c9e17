// vendor_type shares the header of its family, the hierarchical name lists.
#pragma once

#include "tessaron/lists/class.h"
