// Defines the GUIDs that Schedulon.h declares.
#include <windows.h>
#include <initguid.h>
#include <Schedulon.h>
