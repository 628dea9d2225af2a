#include "visa/VisaLoader.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <array>

namespace {

#if defined(_WIN32)
using LibraryHandle = HMODULE;

constexpr std::array<const char *, 2> SystemNames = {"visa64.dll", "visa32.dll"};

LibraryHandle OpenLibrary(const char *name)
{
    // Not from the current folder: whoever can write there could otherwise run code here.
    return LoadLibraryExA(name, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

void CloseLibrary(LibraryHandle library)
{
    FreeLibrary(library);
}

template <typename Function>
bool Resolve(LibraryHandle library, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(GetProcAddress(library, name));
    return function != nullptr;
}
#else
using LibraryHandle = void *;

constexpr std::array<const char *, 2> SystemNames = {"libvisa.so.0", "libvisa.so"};

LibraryHandle OpenLibrary(const char *name)
{
    return dlopen(name, RTLD_NOW | RTLD_LOCAL);
}

void CloseLibrary(LibraryHandle library)
{
    dlclose(library);
}

template <typename Function>
bool Resolve(LibraryHandle library, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}
#endif

std::optional<VisaTable> ResolveAll(LibraryHandle library)
{
    VisaTable table;
    const bool whole = Resolve(library, "viOpenDefaultRM", table.viOpenDefaultRM) &&
                       Resolve(library, "viFindRsrc", table.viFindRsrc) &&
                       Resolve(library, "viFindNext", table.viFindNext) && Resolve(library, "viOpen", table.viOpen) &&
                       Resolve(library, "viClose", table.viClose) && Resolve(library, "viVPrintf", table.viVPrintf) &&
                       Resolve(library, "viVScanf", table.viVScanf) &&
                       Resolve(library, "viUsbControlOut", table.viUsbControlOut);
    if (!whole)
        return std::nullopt;
    return table;
}

ViStatus OSTRAKON_VISA_CALL AbsentOpenDefaultRM(ViSession *manager)
{
    *manager = VI_NULL;
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentFindRsrc(ViSession, ViConstString, ViFindList *list, ViUInt32 *count, ViChar *)
{
    if (list != nullptr)
        *list = VI_NULL;
    if (count != nullptr)
        *count = 0;
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentFindNext(ViFindList, ViChar *)
{
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentOpen(ViSession, ViConstRsrc, ViAccessMode, ViUInt32, ViSession *session)
{
    *session = VI_NULL;
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentClose(ViObject)
{
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentFormatted(ViSession, ViConstString, ViVAList)
{
    return VI_ERROR_LIBRARY_NFOUND;
}

ViStatus OSTRAKON_VISA_CALL AbsentControlOut(ViSession, ViInt16, ViInt16, ViUInt16, ViUInt16, ViUInt16, const ViByte *)
{
    return VI_ERROR_LIBRARY_NFOUND;
}

/// The system's library, looked for once in the life of the process.
const std::optional<VisaTable> &SystemVisa()
{
    static const std::optional<VisaTable> table = LoadVisaFrom(SystemNames);
    return table;
}

} // namespace

const VisaTable &AbsentVisa()
{
    static const VisaTable table = {AbsentOpenDefaultRM, AbsentFindRsrc,  AbsentFindNext,  AbsentOpen,
                                    AbsentClose,         AbsentFormatted, AbsentFormatted, AbsentControlOut};
    return table;
}

std::optional<VisaTable> LoadVisaFrom(std::span<const char *const> names)
{
    for (const char *name : names) {
        const LibraryHandle library = OpenLibrary(name);
        if (library == nullptr)
            continue;
        if (const std::optional<VisaTable> table = ResolveAll(library))
            return table;
        CloseLibrary(library);
    }
    return std::nullopt;
}

const VisaTable &LoadVisa()
{
    const std::optional<VisaTable> &table = SystemVisa();
    return table ? *table : AbsentVisa();
}

bool VisaLibraryFound()
{
    return SystemVisa().has_value();
}
