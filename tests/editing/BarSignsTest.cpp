#include "editing/mod_BarSigns.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillon::Editing {
namespace {

/// A letter a bar: "." nothing, S segno, D D.S., T To Coda, C coda, B D.S. and To Coda at once.
Core::TabFile Piece(const std::string& signs) {
    Core::TabFile file;
    file.BarInfos.Resize(static_cast<int>(signs.size()));
    for (std::size_t i = 0; i < signs.size(); ++i) {
        Core::BarInfo& info = file.BarInfos.Edit(static_cast<int>(i));
        info.Segno = signs[i] == 'S' ? 1 : 0;  // files store any number
        info.DalSegno = signs[i] == 'D' || signs[i] == 'B' ? -1 : 0;
        info.ToCoda = signs[i] == 'T' || signs[i] == 'B' ? -1 : 0;
        info.CodaMark = signs[i] == 'C' ? -1 : 0;
    }
    return file;
}

TEST(BarSigns, AreJudgedAsThePlayerTakesThem) {
    using enum SignFault;
    const std::pair<const char*, std::vector<SignComplaint>> cases[] = {
        {".....", {}},
        {".S.D.", {}},
        {".ST.DC", {}},
        {".S..BC", {}},   // both at once: the D.S. is taken first, To Coda when the bar comes again
        {".S.DT.C", {}},  // behind the D.S.: passed again once that was taken
        {"..D", {{DalSegnoAlone, 2}}},
        {"..S", {{SegnoAlone, 2}}},
        {".D.S", {{SegnoBehind, 1}}},
        {"SS.D", {{ManySegnos, 1}}},
        {"S.DD", {{ManyDalSegnos, 3}}},
        {"S.TDCC", {{ManyCodas, 5}}},
        {"S.TD.", {{ToCodaAlone, 2}}},
        {"S..DC", {{CodaAlone, 4}}},
        {"..T.C", {{ToCodaUnreached, 2}}},
        {".TS.DC", {{ToCodaUnreached, 1}}},
        {"S.CTD", {{CodaBehind, 3}}},
        {"..T", {{ToCodaUnreached, 2}, {ToCodaAlone, 2}}},
    };
    for (const auto& [signs, expected] : cases) EXPECT_EQ(CheckCodas(Piece(signs)), expected) << signs;
}

}  // namespace
}  // namespace Quillon::Editing
