// A shared library that is loaded when something of it is first needed.
//
// The libraries behind sound bring some sixty others with them, which cost a program six milliseconds at its start
// when it is linked with them; most runs of the twin never sound.
#pragma once

namespace Quillon {

class SharedLibrary {
public:
    /// Loads it for the rest of the program's life: such libraries leave threads and exit handlers behind.
    explicit SharedLibrary(const char* name);

    /// Sets `function` to the library's function of that name. One that is missing makes the library incomplete.
    template <class Function>
    void Find(const char* name, Function*& function) {
        function = reinterpret_cast<Function*>(Symbol(name));
        complete = complete && function;
    }
    /// As Find, for what the library may lack; nullptr then. Libraries that it brings with it are searched too.
    template <class Function>
    Function* FindAny(const char* name) const {
        return reinterpret_cast<Function*>(Symbol(name));
    }
    /// It was loaded, and all that was sought with Find is there.
    bool Complete() const { return complete; }

private:
    void* Symbol(const char* name) const;

    void* handle;
    bool complete;
};

/// Keeps the sound systems behind a library from writing to standard error whatever they miss on this machine.
void QuietSoundSystems(const SharedLibrary& library);

}  // namespace Quillon
