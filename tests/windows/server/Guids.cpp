// The one source that defines the identifiers which the compiled type library declares.
#include <windows.h>
// windows.h first
#include <initguid.h>
// initguid.h next
#include <KestrelDll.h>
