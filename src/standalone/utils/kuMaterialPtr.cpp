#include "host/utils/kuMaterialPtr.h"

kuMaterialPtr::~kuMaterialPtr() = default;
