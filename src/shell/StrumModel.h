// What the dialogs for the note and the strum under the cursor share: the place, the change, and how it looks and
// sounds before it is made.
#pragma once

#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "drawing/mod_Excerpt.h"
#include "playback/PlayScore.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

struct StrumModel : DialogModel {
    bool Remove = false;  ///< at OK the effect goes, whatever else is chosen

    /// The strum under the cursor. Models load their fields behind it.
    void Load();
    /// True when the strum has the effect already, so that it can be removed.
    virtual bool Exists() const = 0;
    /// The text key of the first complaint, "" when all is well.
    virtual std::string_view Validate() const = 0;
    /// Writes the change into the open document; true when it differs.
    bool Apply() const;

    /// The strum as it would be.
    Core::Strum After() const;
    /// The open document with it.
    Core::TabFile Changed() const;
    virtual Drawing::ExcerptOf Shown() const;
    /// Sounds it with its effects; Apply and the end of the dialog silence it.
    void Listen() const;

    const Core::Strum& Before() const { return before; }
    const Core::Note& NoteBefore() const { return before.Notes[stringHere]; }
    int String() const { return stringHere; }

protected:
    virtual void Write(Core::Strum& strum) const = 0;
    virtual void Clear(Core::Strum& strum) const = 0;
    /// What was chosen becomes what the next dialog of the kind begins with.
    virtual void Remember() const {}

    const Core::Track& ItsTrack() const;

private:
    Playback::StrumPlace place;
    int stringHere = 0;
    Core::Strum before;
};

/// A model of the note under the cursor.
struct NoteEffectModel : StrumModel {
protected:
    void Write(Core::Strum& strum) const final { WriteNote(strum.Notes.Edit(String())); }
    void Clear(Core::Strum& strum) const final { ClearNote(strum.Notes.Edit(String())); }
    virtual void WriteNote(Core::Note& note) const = 0;
    virtual void ClearNote(Core::Note& note) const = 0;
};

}  // namespace Quillon::Shell
