// What is done with many chords at once: new names, other keys, an end, one text of them all.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/DialogModel.h"

namespace Quillon::Tools {

struct ChordBatchModel : Shell::DialogModel {
    enum class Operation : std::int16_t { Rename, Transpose, Delete, Export };

    std::vector<std::string> Names;  ///< of the chosen chords
    Operation Do = Operation::Rename;
    std::string Find;  ///< in the names; "" puts Replace before them
    std::string Replace;
    std::int16_t Semitones = 1;
    bool Flats = false;
    bool KeepOld = true;  ///< transposed chords come beside the old ones, else in their place

    static constexpr int MostSemitones = 11;

    /// The chosen chords of the manager.
    void Load();

    /// What becomes of a chord.
    struct Change {
        std::string From;
        std::string To{};      ///< the new name; "" where there is none
        const char* Why = "";  ///< text key of why nothing is done; "" when all is well
    };
    /// A row a chord, for Rename and Transpose, as of the library now.
    std::vector<Change> Plan() const;
    std::string_view Validate() const;
    /// Does it; how many files were written or deleted. New files come before old ones go; when one can't be written
    /// all is as it was, and what that raised goes on. `goOn` is told how many percent are written; when it gives false
    /// all is as it was, too, and 0 done.
    int Apply(const std::function<bool(int)>& goOn = {}) const;

private:
    std::vector<Change> Renamed() const;
    std::vector<Change> Transposed() const;
};

/// "&Batch Operations...": asks what to do with the chosen chords, and for a file where one is to be written.
void mnuBatchOperations_Click();
/// The same with Delete chosen.
void DeleteChosenChords();

}  // namespace Quillon::Tools
