#include "com/automation/HostLink.h"
