#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "drawing/mod_PageLayout.h"
#include "editing/mod_BarSigns.h"
#include "shell/BarModels.h"

namespace Quillon::Shell {

using Core::BarInfo;
using Core::Open;

namespace {

constexpr int KeyCount = 14;  ///< no key, seven with sharps and C, five with flats

/// A stored value as its field shows it.
std::int16_t Field(std::int32_t value) { return static_cast<std::int16_t>(std::clamp(value, -1, 32767)); }

std::int16_t BottomIndexOf(std::int32_t bottom) {
    const auto* const found = std::ranges::find(BarTimeSigModel::Bottoms, bottom);
    return found == std::end(BarTimeSigModel::Bottoms)
               ? std::int16_t{-1}
               : static_cast<std::int16_t>(found - std::begin(BarTimeSigModel::Bottoms));
}

Editing::BarRange Reach(int bar, std::int16_t scope) {
    const std::int16_t here = Core::ToInt16(bar - 1);
    const std::int16_t last = Core::ToInt16(Open.TabFile.BarInfos.UpperBound());
    switch (static_cast<SignatureScope>(scope)) {
        case SignatureScope::ThisBar:
            return {here, here};
        case SignatureScope::FromHere:
            return {here, last};
        default:
            return {0, last};
    }
}

/// Takes the document if it differs. True when it did.
bool Take(Core::TabFile file) {
    if (file == Open.TabFile) return false;
    Open.TabFile = std::move(file);
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    return true;
}

const BarInfo& InfoOf(int bar) { return Open.TabFile.BarInfos[bar - 1]; }

std::string_view TextKey(Editing::SignFault fault) {
    switch (fault) {
        case Editing::SignFault::DalSegnoAlone:
            return "str_SignDalSegnoAlone";
        case Editing::SignFault::SegnoAlone:
            return "str_SignSegnoAlone";
        case Editing::SignFault::SegnoBehind:
            return "str_SignSegnoBehind";
        case Editing::SignFault::ManySegnos:
            return "str_SignManySegnos";
        case Editing::SignFault::ManyDalSegnos:
            return "str_SignManyDalSegnos";
        case Editing::SignFault::ManyCodas:
            return "str_SignManyCodas";
        case Editing::SignFault::ToCodaAlone:
            return "str_SignToCodaAlone";
        case Editing::SignFault::CodaAlone:
            return "str_SignCodaAlone";
        case Editing::SignFault::ToCodaUnreached:
            return "str_SignToCodaUnreached";
        case Editing::SignFault::CodaBehind:
            return "str_SignCodaBehind";
    }
    return "";
}

}  // namespace

void BarTimeSigModel::Load() {
    *this = {};
    Bar = Core::ToInt16(Open.CurBar + 1);
    Top = Field(InfoOf(Bar).TimeSigTop);
    BottomIndex = BottomIndexOf(InfoOf(Bar).TimeSigBottom);
}

std::string_view BarTimeSigModel::Validate() const {
    const bool isNew = Top != Field(InfoOf(Bar).TimeSigTop);
    return isNew && (Top < 1 || Top > MostTop) ? "str_TimeSigTopOutOfRange" : "";
}

Core::TabFile BarTimeSigModel::Changed() const {
    // A figure that the fields can't show stays as it is.
    const BarInfo here = InfoOf(Bar);
    const std::int32_t top = Top == Field(here.TimeSigTop) ? here.TimeSigTop : Top;
    const std::int32_t bottom = BottomIndex < 0 ? here.TimeSigBottom : Bottoms[BottomIndex];
    Core::TabFile file = Open.TabFile;
    const Editing::BarRange reach = Reach(Bar, Scope);
    for (int bar = reach.From; bar <= reach.To; ++bar) {
        BarInfo& info = file.BarInfos.Edit(bar);
        info.TimeSigTop = top;
        info.TimeSigBottom = bottom;
    }
    return file;
}

bool BarTimeSigModel::Apply() const { return Take(Changed()); }

std::vector<std::string> BarKeySigModel::KeyNames(bool minor, const std::string& none) {
    static constexpr const char* major[] = {"C", "G", "D", "A", "E", "B", "F♯", "C♯", "F", "B♭", "E♭", "A♭", "D♭"};
    static constexpr const char* minors[] = {"Am",  "Em", "Bm", "F♯m", "C♯m", "G♯m", "D♯m",
                                             "A♯m", "Dm", "Gm", "Cm",  "Fm",  "B♭m"};
    constexpr int MostSharps = 7;
    std::vector<std::string> names = {none};
    for (int i = 0; i < KeyCount - 1; ++i) {
        std::string name = minor ? minors[i] : major[i];
        if (i > MostSharps) {
            name += "  (" + std::to_string(i - MostSharps) + " ♭)";
        } else if (i > 0) {
            name += "  (" + std::to_string(i) + " ♯)";
        }
        names.push_back(std::move(name));
    }
    return names;
}

void BarKeySigModel::Load() {
    *this = {};
    Bar = Core::ToInt16(Open.CurBar + 1);
    const Core::Bar& here = Open.TabFile.Tracks[Open.CurTrack].Bars[Bar - 1];
    Key = here.Key >= 0 && here.Key < KeyCount ? Field(here.Key) : std::int16_t{-1};
    Minor = here.KeyIsMinor ? 1 : 0;
    const auto& tracks = Open.TabFile.Tracks;
    AllTracks = std::all_of(tracks.begin(), tracks.end(), [&](const Core::Track& track) {
        const Core::Bar& bar = track.Bars[Bar - 1];
        return bar.Key == here.Key && bar.KeyIsMinor == here.KeyIsMinor;
    });
}

std::string_view BarKeySigModel::Validate() const { return Key >= KeyCount ? "str_KeyMissing" : ""; }

Core::TabFile BarKeySigModel::Changed() const {
    const std::int32_t key = Key < 0 ? Open.TabFile.Tracks[Open.CurTrack].Bars[Bar - 1].Key : Key;
    const Editing::BarRange reach = Reach(Bar, Scope);
    Core::TabFile file = Open.TabFile;
    for (int t = 0; t < file.Tracks.Count(); ++t) {
        if (!AllTracks && t != Open.CurTrack) continue;
        for (int b = reach.From; b <= reach.To; ++b) {
            Core::Bar& bar = file.Tracks[t].Bars.Edit(b);
            bar.Key = key;
            bar.KeyIsMinor = Minor != 0;
        }
    }
    return file;
}

Core::TabFile BarKeySigModel::Shown() const {
    Core::TabFile file = Changed();
    Core::Track& track = file.Tracks[Open.CurTrack];
    if (!track.ShowTreble && !track.ShowBass) {
        track.ShowTreble = true;
        track.ShowTab = false;
    }
    return file;
}

bool BarKeySigModel::Apply() const { return Take(Changed()); }

void EndRepeatModel::Load() {
    Bar = Core::ToInt16(Open.CurBar + 1);
    const BarInfo& info = InfoOf(Bar);
    Opens = info.RepeatOpen;
    Closes = true;  // who asks for the end of a repeat has only to say how often
    Jumps = info.RepeatClose > 0 ? info.RepeatClose : std::int16_t{1};
}

std::string_view EndRepeatModel::Validate() const {
    const bool isNew = Jumps != InfoOf(Bar).RepeatClose;
    return Closes && isNew && (Jumps < 1 || Jumps > MostJumps) ? "str_JumpsOutOfRange" : "";
}

Core::TabFile EndRepeatModel::Changed() const {
    Core::TabFile file = Open.TabFile;
    BarInfo& info = file.BarInfos.Edit(Bar - 1);
    info.RepeatOpen = Opens;
    if (Closes || info.RepeatClose > 0) info.RepeatClose = Closes ? Jumps : std::int16_t{0};
    return file;
}

bool EndRepeatModel::Apply() const { return Take(Changed()); }

void CodaModel::Load() {
    Bar = Core::ToInt16(Open.CurBar + 1);
    const BarInfo& info = InfoOf(Bar);
    Segno = info.Segno != 0;
    DalSegno = info.DalSegno != 0;
    ToCoda = info.ToCoda != 0;
    Coda = info.CodaMark != 0;
}

Core::TabFile CodaModel::Changed() const {
    Core::TabFile file = Open.TabFile;
    BarInfo& info = file.BarInfos.Edit(Bar - 1);
    const auto mark = [](std::int16_t& field, bool set) {
        if (set != (field != 0)) field = set ? -1 : 0;
    };
    mark(info.Segno, Segno);
    mark(info.DalSegno, DalSegno);
    mark(info.ToCoda, ToCoda);
    mark(info.CodaMark, Coda);
    return file;
}

bool CodaModel::Apply() const { return Take(Changed()); }

std::vector<std::string> CodaModel::Check() const {
    std::vector<std::string> sentences;
    for (const Editing::SignComplaint& each : Editing::CheckCodas(Changed())) {
        sentences.push_back(Core::LanguageText(TextKey(each.Fault), {std::to_string(each.Bar + 1)}));
    }
    return sentences;
}

}  // namespace Quillon::Shell
