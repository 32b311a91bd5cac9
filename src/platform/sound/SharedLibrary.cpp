#include "platform/sound/SharedLibrary.h"

#include <dlfcn.h>

#include <initializer_list>

namespace Quillon {

namespace {

void IgnoreAlsa(const char*, int, const char*, int, const char*, ...) {}
void IgnoreJack(const char*) {}
void IgnoreGlib(const char*, int, const char*, void*) {}

}  // namespace

SharedLibrary::SharedLibrary(const char* name)
    : handle(::dlopen(name, RTLD_NOW | RTLD_LOCAL)), complete(handle != nullptr) {}

void* SharedLibrary::Symbol(const char* name) const { return handle ? ::dlsym(handle, name) : nullptr; }

void QuietSoundSystems(const SharedLibrary& library) {
    using AlsaHandler = void(const char*, int, const char*, int, const char*, ...);
    using JackHandler = void(const char*);
    if (auto* set = library.FindAny<int(AlsaHandler*)>("snd_lib_error_set_handler")) set(&IgnoreAlsa);
    for (const char* name : {"jack_set_error_function", "jack_set_info_function"}) {
        if (auto* set = library.FindAny<void(JackHandler*)>(name)) set(&IgnoreJack);
    }
    // The reader of SoundFonts remarks on damaged ones in nobody's name.
    using GlibHandler = void(const char*, int, const char*, void*);
    constexpr int EveryLevel = -1 & ~3;
    if (auto* set = library.FindAny<unsigned(const char*, int, GlibHandler*, void*)>("g_log_set_handler")) {
        set(nullptr, EveryLevel, &IgnoreGlib, nullptr);
    }
}

}  // namespace Quillon
