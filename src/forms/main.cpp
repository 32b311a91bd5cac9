// The editor: services first, then the window, then the start of the system.
#include <QApplication>
#include <QCommandLineParser>
#include <clocale>
#include <cstdlib>

#include "core/mod_Common.h"
#include "forms/Text.h"
#include "forms/Theme.h"
#include "forms/frmMain.h"
#include "forms/frmSplash.h"
#include "forms/picDocumentAccess.h"
#include "platform/Services.h"
#include "platform/pdf/PdfPages.h"
#include "platform/portable/CurlFetch.h"
#include "platform/portable/IniStore.h"
#include "platform/portable/MachineLocale.h"
#include "platform/portable/PosixFiles.h"
#include "platform/portable/Rc4Md5.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/TimerThread.h"
#include "platform/qt/WindowQueue.h"
#include "platform/sound/FluidSynthesizer.h"
#include "platform/sound/SystemMidi.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Forms {

namespace {

struct Arguments {
    QString Base;
    QString File;
    bool QuitAfterPaint = false;
};

Arguments Read(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription("A tablature and notation editor for guitarists.");
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption base("base", "The folder that holds QL4.ini, the settings and Data.", "DIR");
    const QCommandLineOption quit("quit-after-paint", "End when the window was painted for the first time.");
    parser.addOptions({base, quit});
    parser.addPositionalArgument("FILE", "A music file to open.", "[FILE]");
    parser.process(application);
    return {parser.value(base), parser.positionalArguments().value(0), parser.isSet(quit)};
}

/// The sound of the machine. However the program ends, nothing plays on into what is gone: playing stops, then the
/// output closes, then the timer thread ends, and the queue goes last.
class SoundServices {
public:
    SoundServices() : synthesizer(Services.BaseFolder / "Data" / "SoundFonts") {
        Services.Timers = &timers;
        Services.Synth = &synthesizer;
        Services.Midi = &outputs;
    }
    ~SoundServices() {
        Playback::Player.View = nullptr;  // its window is gone
        Playback::StopTab();
        Playback::MidiClose();
        Services.Timers = nullptr;
        Services.Synth = nullptr;
        Services.Midi = nullptr;
    }
    SoundServices(const SoundServices&) = delete;
    SoundServices& operator=(const SoundServices&) = delete;

private:
    WindowQueue queue;
    TimerThread timers{queue};
    FluidSynthesizer synthesizer;
    SystemMidi outputs{synthesizer};
};

int Main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("quillon");
    // No display name is set: the platform would put it behind the caption of every window.
    QApplication::setApplicationVersion(QUILLON_VERSION);
    QApplication::setDesktopFileName("quillon");
    // The library took the locale of the environment. Only Core::DecimalSign follows it; all else reads and writes "C".
    std::setlocale(LC_NUMERIC, "C");
    Core::DecimalSign = MachineDecimalSign();
    const Arguments arguments = Read(application);

    PosixFiles files;
    Rc4Md5 cipher;
    QtMessageBox messages;
    Services.Files = &files;
    Services.StreamCipher = &cipher;
    Services.Messages = &messages;
    Services.BaseFolder = Shell::BaseFolder(arguments.Base.toStdString(), ToPath(QApplication::applicationDirPath()),
                                            [](const char* name) -> const char* { return std::getenv(name); });
    IniStore store(files, Services.BaseFolder / "settings.ini");
    Services.Settings = &store;
    Services.NewPdf = [] { return std::unique_ptr<PageFile>(std::make_unique<PdfPages>()); };
    CurlFetch fetch;
    Services.Fetch = &fetch;
    const SoundServices sound;

    InstallScoreAccess();
    frmMain window;
    Shell::Program.View = &window;
    Shell::Program.Dialogs = &window;
    if (arguments.QuitAfterPaint) {
        QObject::connect(&window, &frmMain::FirstPainted, &application, [] { std::_Exit(0); });
    }
    ShowSplashFor(arguments.File, window);
    Shell::Start(arguments.File.toStdString());
    const int code = QApplication::exec();
    Shell::EndSound();  // a session that ends may not have closed the window
    return code;
}

}  // namespace

}  // namespace Quillon::Forms

int main(int argc, char** argv) { return Quillon::Forms::Main(argc, argv); }
