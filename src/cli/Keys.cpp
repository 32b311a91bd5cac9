// quillon-cli keys FILE KEYS
#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <vector>

#include "cli/Commands.h"
#include "cli/CursorReport.h"
#include "cli/DocumentFiles.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "exchange/JsonDocument.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"

namespace Quillon::Cli {

using Core::Open;

namespace {

struct Arguments {
    std::string File;
    std::string Keys;
    std::string Out;
    bool Notation = false;
    int Track = 0;
    std::optional<std::int16_t> UndoLevels;
};

struct HeldKey {
    int Code = 0;
    int Shift = 0;
};

/// "s46": any of s and c, then the code of a key.
HeldKey KeyOf(const std::string& word) {
    constexpr int shift = 1, control = 2, lastCode = 255;
    HeldKey key;
    const char* at = word.data();
    const char* const end = at + word.size();
    for (; at != end && (*at == 's' || *at == 'c'); ++at) key.Shift |= *at == 's' ? shift : control;
    const auto [stop, problem] = std::from_chars(at, end, key.Code);
    if (problem != std::errc{} || stop != end || key.Code < 1 || key.Code > lastCode) {
        throw UsageError(word + ": a key is a code from 1 to 255, behind s for shift and c for control");
    }
    return key;
}

std::vector<HeldKey> KeysOf(const std::string& text) {
    std::vector<HeldKey> keys;
    std::istringstream words(text);
    for (std::string word; words >> word;) keys.push_back(KeyOf(word));
    return keys;
}

void Send(const std::vector<HeldKey>& keys) {
    if (Open.TabFile.HasPassword) {
        Services.Messages->Show(Core::LanguageText("str_FileLocked"), Core::LanguageText("str_TitleNote"), Buttons::Ok,
                                BoxIcon::Exclamation);
        return;
    }
    for (const HeldKey& key : keys) Editing::picDocument_KeyDown(key.Code, key.Shift);
}

int Keys(const Arguments& arguments) {
    const std::vector<HeldKey> keys = KeysOf(arguments.Keys);
    if (!arguments.Out.empty()) WriterFor(arguments.Out);
    Core::LoadINISettings();
    if (arguments.UndoLevels) Core::Settings.UndoLevels = *arguments.UndoLevels;
    OpenWholeDocument(arguments.File);
    ChooseTrack(arguments.Track);
    Editing::ResetCursor(Open, arguments.Track);
    Open.InputMode = arguments.Notation ? Core::NotationInput : Core::TabInput;
    try {
        Send(keys);
    } catch (const RunTimeError& error) {
        throw CommandFailure(arguments.File + ": " + error.Description());
    }
    SaveDocument(arguments.Out);
    auto document = nlohmann::ordered_json::parse(Exchange::WriteJson(Open.TabFile));
    document["Cursor"] = CursorReport();
    Print(document.dump(2) + "\n");
    return Done;
}

}  // namespace

void AddKeys(CLI::App& app, Work& work) {
    CLI::App* command =
        app.add_subcommand("keys", "Types keys into a document and prints it, with its cursor, as JSON");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->File, "Document to open, by its ending")->required()->type_name("");
    command
        ->add_option("KEYS", arguments->Keys, "Key codes between blanks, s and c before those with shift and control")
        ->required()
        ->type_name("");
    command->add_option("--out", arguments->Out, "File to save the document to, by its ending")->type_name("OUT");
    command->add_flag("--notation", arguments->Notation, "The cursor stands on a pitch, not on a string");
    command->add_option("--undo-levels", arguments->UndoLevels, "Levels of undo; those of the settings without it")
        ->type_name("N");
    command->add_option("--track", arguments->Track, "Track to type into, from 0")->type_name("N");
    command->callback([arguments, &work] { work = [arguments] { return Keys(*arguments); }; });
}

}  // namespace Quillon::Cli
