// The one source that defines the identifiers which the compiled type library declares.
#include <windows.h>
#include <initguid.h>
#include <KestrelDll.h>
