// The import of text tabs, as its dialog shows it: from a file, the web or the clipboard onto the current track.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "shell/ImportModel.h"

namespace Quillon::Shell {

struct AsciiImportModel : ImportModel {
    enum class Source : std::uint8_t { File, Web, Clipboard };

    Source From = Source::File;
    bool IntoNew = false;            ///< a new document takes the place of the open one; nothing of it is lost unasked
    std::filesystem::path FileName;  ///< "" before one was chosen
    std::string Url = "http://";
    std::string Timing = "4:4";  ///< as typed
    bool EnforceTiming = false;
    std::int16_t Dash = 4;  ///< into Dashes()
    bool SameLength = false;
    bool Details = false;
    bool AutoSettings = false;
    std::int16_t Instrument = 0;  ///< guitar or bass, or drums. Both are read alike, which is meant

    /// Text keys of what one dash is worth, from a whole note to a 64th.
    static std::span<const std::string_view> Dashes();
    /// The entry that a typed text equals, the last one for any other.
    static std::int16_t DashOfText(std::string_view typed);

    void Load(Source from);
    /// Text key of the window's caption.
    std::string_view Caption() const;
    /// Takes a file; false when it can't be read, which a box has told.
    bool ChooseFile(const std::filesystem::path& path);

    /// Fetches the page of the address, to look at it beforehand. False when that was cancelled or failed, which a box
    /// has told.
    bool Look(const Exchange::ImportProgress& progress);

    bool Command2_Click(const Exchange::ImportProgress& progress) override;

    std::string_view OtherName() const override { return "str_ReaderLines"; }
    std::string_view About(int reader) const override;
    std::string_view Missing() const override { return bytes.empty() ? "str_ImportNoSource" : ""; }

protected:
    bool Read(int reader, Core::TabFile& file, Exchange::ImportReport& report,
              const Exchange::ImportProgress& progress) const override;
    bool ReplacesSong() const override { return IntoNew; }
    int ShownTrack() const override;
    bool KeepsHalf(int reader) const override { return reader == Classic && !IntoNew; }
    std::string FailureText(const RunTimeError& error) const override;

private:
    enum class Step : std::uint8_t { GoOn, Stay, Close };
    /// Close when a music file was opened in place of the page, or that was given up.
    Step OfferMusicFile(const Exchange::ImportProgress& progress);
    std::string SourceText() const;

    std::string bytes;       ///< of the text or page, as they came
    std::string fetchedUrl;  ///< where they were fetched from; "" for nowhere
};

void mnuFileImportTab_Click();
void mnuImportTabFromWeb_Click();
void mnuFileImportClipboard_Click();

/// Opens a text or page as a new document, by the dialog. False when that was cancelled.
bool OpenTextTab(const std::filesystem::path& path);

// At the start of the program, where an option allows it: an address on the clipboard is taken off it and imported.
bool ImportsAtStart();
void SetImportsAtStart(bool imports);
void StartTmrImport();
void tmrImport_Timer();

}  // namespace Quillon::Shell
