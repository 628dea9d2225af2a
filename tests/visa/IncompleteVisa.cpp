/// @file
/// A library with the eight VISA names of the program's table, less the one that a WITHOUT_ definition takes away.
/// Nobody calls it.

#if defined(_WIN32)
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

#define VISA_NAME(name)                                                                                                \
    EXPORTED int name()                                                                                                \
    {                                                                                                                  \
        return 0;                                                                                                      \
    }

#ifndef WITHOUT_viOpenDefaultRM
VISA_NAME(viOpenDefaultRM)
#endif
#ifndef WITHOUT_viFindRsrc
VISA_NAME(viFindRsrc)
#endif
#ifndef WITHOUT_viFindNext
VISA_NAME(viFindNext)
#endif
#ifndef WITHOUT_viOpen
VISA_NAME(viOpen)
#endif
#ifndef WITHOUT_viClose
VISA_NAME(viClose)
#endif
#ifndef WITHOUT_viVPrintf
VISA_NAME(viVPrintf)
#endif
#ifndef WITHOUT_viVScanf
VISA_NAME(viVScanf)
#endif
#ifndef WITHOUT_viUsbControlOut
VISA_NAME(viUsbControlOut)
#endif
