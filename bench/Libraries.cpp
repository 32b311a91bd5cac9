// What a person waits for who looks chords up: the library made for the first time, its window opened, its files
// filtered, and all its boxes scrolled through in a view of 1,600 by 1,000 pixels.
#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <memory>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "core/mod_TabFileStructure.h"
#include "forms/frmChordManager.h"
#include "forms/frmMain.h"
#include "forms/picChordView.h"
#include "library/mod_Chords.h"
#include "platform/Services.h"
#include "platform/VirtualClock.h"
#include "platform/headless/RecordingMidi.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_TabPlayer.h"
#include "shell/ToolWindows.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

constexpr std::size_t AllChords = 1555;
constexpr double Frame = 1000.0 / 60;  // ms

/// A library that has read nothing yet, as in a program that was just started.
Library::ChordLibrary Unread() {
    Library::ChordLibrary library(std::filesystem::path("Data") / "My Chords", Library::ReadChord);
    library.Refresh();
    return library;
}

void MeasureLibrary() {
    Times making, first, after, names;
    for (int run = 0; run < 5; ++run) {
        std::filesystem::remove_all(Library::Chords.Folder());
        making.Take(Library::CreateAllChords);
    }
    Row("The chord library's first making, median", making.Part(0.5) / 1e3, 1, "s");
    using Kind = Library::ChordFilter::Kind;
    const Library::ChordFilter byStrings{.By = Kind::Strings, .Strings = 6};
    for (int run = 0; run < 20; ++run) {
        Library::ChordLibrary library = Unread();
        const auto filter = [&](const Library::ChordFilter& by) {
            library.Refresh();
            if (Library::FilteredChords(library, by, Core::Open).size() != AllChords) Fail("chords are missing");
        };
        names.Take([&] { filter({.By = Kind::Name, .Text = ""}); });
        first.Take([&] { filter(byStrings); });
        after.Take([&] { filter(byStrings); });
    }
    Row("A filter over all chord files, the first time, median", first.Part(0.5), 100, "ms");
    Row("The same again, median", after.Part(0.5), 10, "ms");
    Row("A filter by name, which reads no file, median", names.Part(0.5), "ms");
}

std::unique_ptr<Forms::frmMain> OpenEditor() {
    auto window = std::make_unique<Forms::frmMain>();
    Shell::Program.View = window.get();
    Shell::Program.Dialogs = window.get();
    Shell::Start("");
    window->resize(1600, 1000);
    QApplication::processEvents();
    return window;
}

void OpenManager(Forms::frmMain& window) {
    window.ActionOf("mnuToolsChords")->trigger();
    QApplication::processEvents();
}

void MeasureOpening() {
    Times opening;
    for (int run = 0; run < 10; ++run) {
        const auto window = OpenEditor();
        Library::Chords = Unread();
        opening.Take([&] { OpenManager(*window); });
        if (Tools::ChordManager.lstChords.size() != AllChords) Fail("the chord manager shows no chords");
        Shell::ToolWindows = {};
        Core::Open.FileChanged = false;
    }
    Row("The chord manager, from its command to painted, median", opening.Part(0.5), 150, "ms");
    Row("The same, worst", opening.Part(1), "ms");
}

void MeasureScrolling(int mode, const char* name, double limit) {
    const auto window = OpenEditor();
    Library::Chords = Unread();
    OpenManager(*window);
    auto* const manager = window->findChild<Forms::frmChordManager*>();
    manager->mnuUndock_Click();
    manager->resize(1600, 1000);
    Tools::mnuDisplay_Click(mode);
    QApplication::processEvents();
    auto* const view = manager->findChild<Forms::picChordView*>("picView");
    QScrollBar& bar = *view->verticalScrollBar();
    if (bar.maximum() == 0) Fail("there is nothing to scroll");
    Times rows, pages;
    while (bar.value() < bar.maximum()) {
        rows.Take([&] {
            bar.setValue(bar.value() + bar.singleStep() / 2);
            QApplication::processEvents();
        });
    }
    while (bar.value() > bar.minimum()) {
        pages.Take([&] {
            bar.setValue(bar.value() - bar.pageStep());
            QApplication::processEvents();
        });
    }
    const std::string where(name);
    Row(("A frame of scrolling through all boxes, " + where + ", median").c_str(), rows.Part(0.5), "ms");
    Row(("A frame of scrolling through all boxes, " + where + ", worst").c_str(), rows.Part(1), limit, "ms");
    Row(("A frame that shows a whole page of others, " + where + ", worst").c_str(), pages.Part(1), limit, "ms");
    Shell::ToolWindows = {};
    Core::Open.FileChanged = false;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const Setting setting;
    VirtualClock clock;
    RecordingMidi outputs;
    Services.Timers = &clock;
    Services.Midi = &outputs;
    MeasureLibrary();
    MeasureOpening();
    MeasureScrolling(0, "small", Frame);
    MeasureScrolling(5, "large with notes", Frame);
    Playback::Player.View = nullptr;
    Playback::MidiClose();
    return Status();
}
