#include "com/type_library.h"

#include "com/guarded.h"
#include "com/module.h"

namespace vintrel::com {

HRESULT LoadTypeInfo(const GUID& guid, ITypeInfo** info) noexcept {
    *info = nullptr;
    return GuardedResult([&] {
        ITypeLib* library = nullptr;
        HRESULT result = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library);
        if (FAILED(result)) return result;
        result = library->GetTypeInfoOfGuid(guid, info);
        library->Release();
        return result;
    });
}

}  // namespace vintrel::com
