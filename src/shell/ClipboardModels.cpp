// Bars cut, copied, pasted and transposed.
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_Transpose.h"
#include "shell/BarModels.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;
using Editing::BarClipboard;

namespace {

int BarCount() { return Open.TabFile.BarInfos.Count(); }

int TrackOf(std::int16_t tracks) { return tracks == 0 ? Open.CurTrack : Editing::AllTracks; }

std::string_view CheckBars(int from, int to) {
    if (from < 1 || to < 1 || from > BarCount() || to > BarCount()) return "str_BarMissing";
    return from > to ? "str_BarOrder" : "";
}

Editing::BarRange Range(std::int16_t from, std::int16_t to) { return {Core::ToInt16(from - 1), Core::ToInt16(to - 1)}; }

void Changed() {
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    Editing::ClampCursor();
}

/// Bars came or went: the selection's are others now. The cursor goes to a bar counted from 1.
void Moved(std::int16_t bar) {
    Open.CurBar = Core::ToInt16(bar - 1);
    Open.CurStrum = 0;
    Editing::ClearSelection();
    Changed();
}

}  // namespace

void CutCopyPasteModel::Load(Task task) {
    *this = {};
    Doing = task;
    const Editing::BarRange bars = BarsInMind();
    FromBar = BeforeBar = Core::ToInt16(bars.From + 1);
    ToBar = Core::ToInt16(bars.To + 1);
    Tracks = Open.TabFile.Tracks.Count() == 1 ? 1 : 0;
    Over = BarClipboard.PastesOver ? 1 : 0;
}

std::string CutCopyPasteModel::CopiedText() {
    if (!BarClipboard.Copied) return {};
    const Editing::CopiedBars& copied = *BarClipboard.Copied;
    return LanguageText(copied.AllTracks ? "str_CopiedOfAllTracks" : "str_CopiedOfOneTrack",
                        {std::to_string(copied.BarCount())});
}

std::string_view CutCopyPasteModel::Validate() const {
    if (Doing != Task::Paste) return CheckBars(FromBar, ToBar);
    if (!BarClipboard.Copied) return "str_NothingCopied";
    if (BeforeBar < 1 || BeforeBar > BarCount() + 1) return "str_BarMissing";
    if (Times < 1 || Times > MostTimes) return "str_TimesOutOfRange";
    switch (Editing::CanPaste(Open.TabFile, *BarClipboard.Copied, Open.CurTrack)) {
        case Editing::PasteFault::TooFewTracks:
            return "str_PasteTooFewTracks";
        case Editing::PasteFault::DrumsAndStrings:
            return "str_PasteDrumsAndStrings";
        case Editing::PasteFault::None:
            break;
    }
    return "";
}

void CutCopyPasteModel::Apply() const {
    if (Doing == Task::Paste) {
        BarClipboard.PastesOver = Over != 0;
        const auto mode = Over != 0 ? Editing::PasteMode::Overwrite : Editing::PasteMode::Insert;
        Editing::PasteBars(Open.TabFile, *BarClipboard.Copied, Open.CurTrack, BeforeBar - 1, mode, Times);
        return Moved(BeforeBar);
    }
    BarClipboard.Copied = Editing::CopyBars(Open.TabFile, Range(FromBar, ToBar), TrackOf(Tracks));
    if (Doing == Task::Copy) return;
    Editing::CutBars(Open.TabFile, Range(FromBar, ToBar), TrackOf(Tracks));
    Moved(FromBar);
}

void TransposeModel::Load() {
    *this = {};
    const auto all = Editing::BarRange{0, Core::ToInt16(Open.TabFile.BarInfos.UpperBound())};
    const auto bars = Editing::SelectedBars().value_or(all);
    FromBar = Core::ToInt16(bars.From + 1);
    ToBar = Core::ToInt16(bars.To + 1);
}

std::string_view TransposeModel::Validate() const {
    if (Semitones == 0 || Semitones < -MostSemitones || Semitones > MostSemitones) return "str_SemitonesOutOfRange";
    return CheckBars(FromBar, ToBar);
}

std::string TransposeModel::Apply() const {
    const auto stuck = Editing::Transpose(Open.TabFile, TrackOf(Tracks), Range(FromBar, ToBar), Semitones, Keys);
    if (!stuck) {
        Changed();
        return {};
    }
    return LanguageText("str_TransposeUnplayable", {Open.TabFile.Tracks[stuck->Track].Name,
                                                    std::to_string(stuck->Bar + 1), std::to_string(stuck->Strum + 1)});
}

}  // namespace Quillon::Shell
