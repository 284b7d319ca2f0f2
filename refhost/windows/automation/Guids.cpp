// Defines the GUIDs that Schedulon.h declares.
#include <windows.h>
// windows.h first
#include <initguid.h>
// initguid.h second
#include <Schedulon.h>
