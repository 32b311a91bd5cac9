// What the dialogs of imports have in common: two readers of one source, tried out before anything is changed, and the
// report of what they kept.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_Excerpt.h"
#include "exchange/AsciiImport.h"
#include "exchange/ImportReport.h"
#include "platform/RunTimeError.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct ImportModel : DialogModel {
    enum : std::int16_t { Classic, Other };
    static constexpr int Readers = 2;

    /// What came of a reader on a copy of the document.
    struct Trial {
        Core::TabFile File;
        Exchange::ImportReport Report;
        std::string Failure;  ///< why nothing came of it, "" when something did
    };

    std::int16_t Reader = Classic;

    std::string Status;  ///< what is under way, for a label

    /// Text key of the other reader's name: "str_ReaderLines".
    virtual std::string_view OtherName() const = 0;
    /// Text key of what a reader is good for.
    virtual std::string_view About(int reader) const = 0;
    /// Text key of what is missing before there is something to read, "" when nothing is; nothing is tried before.
    virtual std::string_view Missing() const = 0;
    /// A reader tried with the options as they are; kept until Changed. Nothing without a source.
    const Trial* Tried(int reader);
    /// Source or options changed: what was tried no longer counts.
    void Changed() { trials = {}; }
    /// The page that a trial gives, from its first notes on; an empty sheet when it gave none.
    Drawing::Excerpt Sheet(int reader);
    /// Asks what is to be asked, and imports. True when the dialog is done with. `progress` shows percent, and false
    /// from it cancels: then the document is as it was.
    virtual bool Command2_Click(const Exchange::ImportProgress& progress) = 0;

protected:
    /// True when a new document takes the place of the open one; else the open one is added to.
    virtual bool ReplacesSong() const = 0;
    /// Reads the source into a document. False when `progress` ended it. Raises what the reader raises.
    virtual bool Read(int reader, Core::TabFile& file, Exchange::ImportReport& report,
                      const Exchange::ImportProgress& progress) const = 0;
    /// Where the song is not replaced: of the document read, the track that comes from the source.
    virtual int ShownTrack() const = 0;
    /// True when what a reader had done before it raised stays.
    virtual bool KeepsHalf(int) const { return false; }
    /// What is told when the reader raises, without the name of the source.
    virtual std::string FailureText(const RunTimeError& error) const = 0;

    /// Reads the source with the chosen reader into the open document, all or nothing, and shows it; the report is
    /// kept. False when it was cancelled or failed, which a box has told.
    bool Import(const std::string& source, const Exchange::ImportProgress& progress);

private:
    /// The document that an import begins with.
    Core::TabFile Start() const;
    /// Makes it the open document, with the cursor at its beginning.
    void Take(Core::TabFile file);

    std::array<std::optional<Trial>, Readers> trials;
};

/// The song that an import made takes the place of the one before, which was asked about: it has no file yet.
void BecomeNewSong();

/// The report of the last import of this run.
struct LastImportReport {
    std::string Source;  ///< file, address, or "" for the clipboard
    std::optional<Exchange::ImportReport> Report;
};
extern LastImportReport LastImport;

/// The report, headed by its source.
std::string LastReportText();

struct ImportReportModel : DialogModel {
    std::string Text;
    void Load() { Text = LastReportText(); }
    /// Asks where to, and writes the text there.
    void Save() const;
};
bool HasImportReport();
void mnuViewImportReport_Click();

}  // namespace Quillon::Shell
