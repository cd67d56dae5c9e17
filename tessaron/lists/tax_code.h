// TaxCode shares the header of its family, the tax code lists.
#pragma once

#include "tessaron/lists/sales_tax_code.h"
