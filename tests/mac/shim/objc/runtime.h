// Stands in for GCC's header, whose inline functions do not compile with automatic reference counting.
#pragma once
#include <objc/objc.h>

typedef struct objc_method* Method;
typedef struct objc_ivar* Ivar;
typedef struct objc_property* objc_property_t;
