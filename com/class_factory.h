// The class objects that COM asks for.
#pragma once

#include <windows.h>

#include "com/class_table.h"

namespace vintrel::com {

/// What DllGetClassObject answers for a class of the table.
HRESULT NewClassFactory(const ClassEntry& entry, REFIID iid, void** factory);

}  // namespace vintrel::com
