#include "core/mod_Settings.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <variant>

#include "core/mod_Common.h"
#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"

namespace Quillon::Core {

SettingsRecord Settings;

namespace {

using S = SettingsRecord;

constexpr std::string_view Header[] = {"Quillon 4 INI File",
                                       "---------------------------------------------------------------|",
                                       "1 = Yes, 0 = No.",
                                       "Do not delete any part of this file.",
                                       "---------------------------------------------------------------|",
                                       " "};
constexpr std::size_t LabelWidth = 43;

constexpr std::array<const char*, ToolbarCount> ToolbarNames = {
    "File Toolbar",           "Input Toolbar Toolbar",  "Note Editing Toolbar",   "Sound Toolbar",
    "Note Misc Toolbar",      "Beat Duration Toolbar",  "Cut Copy Paste Toolbar", "Track Toolbar",
    "Note Effects 1 Toolbar", "Note Effects 2 Toolbar", "Note Effects 3 Toolbar", "Note Effects 4 Toolbar",
    "Chord 1 Toolbar",        "Chord 2 Toolbar",        "Chord 3 Toolbar",        "Bar 1 Toolbar",
    "Bar 2 Toolbar",          "File Navigation Toolbar"};

using Field = std::variant<bool S::*, std::int16_t S::*, double S::*, std::string S::*>;

struct SettingLine {
    std::string_view Label;
    Field Value;
};

/// The lines behind those of the toolbars, which are written one for each of ToolbarNames.
constexpr SettingLine Lines[] = {
    {"FTP Server Password:", &S::FTPPassword},
    {"FTP Server Username:", &S::FTPUsername},
    {"FTP Server Address:", &S::FTPAddress},
    {"FTP Upload Mode (1=bin,0=asc):", &S::FTPBinary},
    {"Play chords on load:", &S::PlayChordsOnLoad},
    {"Chord Reverb On:", &S::ChordReverb},
    {"Scale Reverb On:", &S::ScaleReverb},
    {"Load First Lesson Automatically:(lessons)", &S::LoadFirstLesson},
    {"Follow tab playback:", &S::FollowTabPlayback},
    {"Alternate Playback Mode:", &S::AlternatePlayback},
    {"HiPrecision Playback Mode:", &S::HiPrecision},
    {"Staff addition recommendation:", &S::StaffAddition},
    {"Always show percussion assistant:", &S::ShowPercussionAssistant},
    {"Output Device ID:", &S::OutputDevice},
    {"Output Program ID: (Controller)", &S::OutputBank},
    {"Levels of Undo:", &S::UndoLevels},
    {"Hide the chord manager after adding chords:", &S::HideChordManager},
    {"Include (C) warning in ASCII Files:", &S::IncludeCopyrightWarning},
    {"Play notes as they are typed:", &S::PlayNotesAsTyped},
    {"Latest Update String:", &S::LatestUpdate},
    {"Check for updates on startup:", &S::CheckForUpdates},
    {"Bend Coefficient:", &S::BendCoefficient},
    {"Normal Vibrato Bend:", &S::VibratoBend},
    {"Wide Vibrato Bend:", &S::WideVibratoBend},
    {"Vibrato Count:", &S::VibratoCount},
    {"Metronome:", &S::Metronome},
    {"Count In:", &S::CountIn},
    {"Max Line Length: (ASCII/HTML)", &S::MaxLineLength},
    {"Check Diary on Startup:", &S::CheckDiary},
    {"Auto Scroll:", &S::AutoScroll},
    {"Show Tips:", &S::ShowTips},
    {"Auto Page Stretch:", &S::AutoPageStretch},
    {"Automatically use ASCII Import Settings:", &S::AutoASCII},
    {"Show project selector on startup:", &S::ShowProjectSelector},
    {"Autosave guitar lesson every 5 mins:", &S::AutosaveLesson},
};

/// Visits label and value of every line, in the file's order, until the visitor says false.
template <class Record, class Visitor>
void ForEachLine(Record& settings, Visitor visit) {
    for (int t = 0; t < ToolbarCount; ++t) {
        if (!visit(ToolbarNames[static_cast<std::size_t>(t)] + std::string(" Visible:"), settings.ToolbarVisible[t])) {
            return;
        }
    }
    for (int t = 0; t < ToolbarCount; ++t) {
        if (!visit(ToolbarNames[static_cast<std::size_t>(t)] + std::string(" Docked:"), settings.ToolbarDocked[t])) {
            return;
        }
    }
    for (const SettingLine& line : Lines) {
        const std::string label(line.Label);
        if (!std::visit([&](auto field) { return visit(label, settings.*field); }, line.Value)) return;
    }
}

std::string FormatValue(bool value) { return value ? "[1]" : "[0]"; }
std::string FormatValue(std::int16_t value) { return "|" + std::to_string(value) + "|"; }
std::string FormatValue(double value) {
    std::string text = FormatDouble(value);
    std::ranges::replace(text, ',', '.');  // the file is the same on every machine
    return "|" + text + "|";
}
std::string FormatValue(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return "|" + ToWindows1252(text) + "|";
}

/// What stands between the bars; raises without them. The value of a text may hold bars itself.
std::string_view BetweenBars(std::string_view line) {
    const std::size_t first = line.find('|');
    const std::size_t last = line.rfind('|');
    if (first == last) RaiseTypeMismatch();
    return line.substr(first + 1, last - first - 1);
}

void ParseValue(std::string_view line, bool& value) { value = line.find('1') != std::string_view::npos; }
void ParseValue(std::string_view line, std::int16_t& value) { value = ParseInt16(BetweenBars(line)); }
void ParseValue(std::string_view line, double& value) { value = ParseDouble(BetweenBars(line)); }
void ParseValue(std::string_view line, std::string& value) { value = FromWindows1252(BetweenBars(line)); }

/// The next line off the front, ended by CR LF or either alone; nothing at the end.
std::optional<std::string_view> NextLine(std::string_view& bytes) {
    if (bytes.empty()) return std::nullopt;
    const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end);
    if (bytes.starts_with('\r'))
        bytes.remove_prefix(1);
    else if (bytes.starts_with('\n'))
        return bytes.remove_prefix(1), line;
    if (bytes.starts_with('\n')) bytes.remove_prefix(1);
    return line;
}

std::filesystem::path SettingsPath() { return Services.BaseFolder / "QL4.ini"; }

}  // namespace

const char* ToolbarName(int toolbar) {
    if (toolbar < 0 || toolbar >= ToolbarCount) RaiseSubscriptOutOfRange();
    return ToolbarNames[static_cast<std::size_t>(toolbar)];
}

int ToolbarIndex(std::string_view name) {
    const auto found = std::ranges::find(ToolbarNames, name);
    return found == ToolbarNames.end() ? -1 : static_cast<int>(found - ToolbarNames.begin());
}

std::string FormatINISettings(const SettingsRecord& settings) {
    std::string out;
    for (std::string_view line : Header) (out += line) += "\r\n";
    ForEachLine(settings, [&](std::string label, const auto& value) {
        label.resize(std::max(LabelWidth, label.size()), ' ');
        out += label + FormatValue(value) + "\r\n";
        return true;
    });
    return out;
}

int ParseINISettings(std::string_view bytes, SettingsRecord& settings) {
    settings = {};
    int values = 0;
    for (std::size_t line = 0; line < std::size(Header); ++line) {
        if (!NextLine(bytes)) return values;
    }
    ForEachLine(settings, [&](const std::string&, auto& value) {
        const auto line = NextLine(bytes);
        if (!line) return false;
        try {
            ParseValue(line->substr(std::min(LabelWidth, line->size())), value);
        } catch (const RunTimeError&) {
            return false;
        }
        ++values;
        return true;
    });
    settings.AlternatePlayback = settings.OutputBank == 127;
    return values;
}

bool INISettingsExist() { return Services.Files->Exists(SettingsPath()); }

void LoadINISettings() {
    Settings = {};
    if (INISettingsExist()) ParseINISettings(Services.Files->Read(SettingsPath()), Settings);
}

void SaveINISettings() { Services.Files->Replace(SettingsPath(), FormatINISettings(Settings)); }

void SetDefaultVars() {
    Settings = {};
    static constexpr std::pair<const char*, const char*> Fonts[] = {{"GFONTNAME", "Times New Roman"},
                                                                    {"GFONTSIZE", "19"},
                                                                    {"GFONTBOLD", "0"},
                                                                    {"GFONTITALIC", "0"},
                                                                    {"GFONTSTRIKE", "0"},
                                                                    {"GFONTUNDERLINE", "0"},
                                                                    {"GFONTCOLOR", "0"},
                                                                    {"GNOTENAME", "Arial"},
                                                                    {"GNOTESIZE", "8"},
                                                                    {"GNOTEBOLD", "0"},
                                                                    {"GNOTEITALIC", "0"},
                                                                    {"GNOTESTRIKE", "0"},
                                                                    {"GNOTEUNDERLINE", "0"},
                                                                    {"GNOTECOLOR", "0"}};
    for (const auto& [key, value] : Fonts) Services.Settings->Save("DefaultInfo", key, value);
}

}  // namespace Quillon::Core
