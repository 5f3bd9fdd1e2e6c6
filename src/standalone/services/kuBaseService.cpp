#include "host/services/kuBaseService.h"

kuBaseService::~kuBaseService() = default;
