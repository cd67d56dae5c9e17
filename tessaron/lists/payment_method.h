// PaymentMethod shares the header of its family, the flat name lists.
#pragma once

#include "tessaron/lists/ship_method.h"
