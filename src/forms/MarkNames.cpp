#include "forms/MarkNames.h"

#include <initializer_list>

#include "forms/Text.h"

namespace Quillon::Forms {

namespace {

/// Captions of menu entries, without their keyboard letters.
QStringList Plain(std::initializer_list<std::string_view> keys) {
    QStringList names;
    for (const std::string_view key : keys) names << Text(key).remove('&');
    return names;
}

}  // namespace

QStringList DynamicNames() {
    return Plain({"str_DynamicFFF", "str_DynamicFF", "str_DynamicF", "str_DynamicMF", "str_DynamicMP", "str_DynamicP",
                  "str_DynamicPP", "str_DynamicPPP"});
}

QStringList HarmonicNames() {
    return Plain({"str_HarmonicNone", "str_HarmonicNatural", "str_HarmonicArtificial5", "str_HarmonicArtificial7",
                  "str_HarmonicArtificial12", "str_HarmonicTapped", "str_HarmonicPitch", "str_HarmonicSemi"});
}

QStringList TechniqueNames() {
    return Plain({"str_MarkNone", "str_TechniqueStaccato", "str_TechniqueTremolo8", "str_TechniqueTremolo16",
                  "str_TechniqueTremolo32", "str_TechniqueSlideUp", "str_TechniqueSlideDown",
                  "str_TechniqueLegatoSlide", "str_TechniqueSlideIntoDown", "str_TechniqueSlideIntoUp",
                  "str_TechniqueHammerOn"});
}

QStringList LeftFingerNames() {
    return Plain({"str_MarkNone", "str_FingerT", "str_Finger1", "str_Finger2", "str_Finger3", "str_Finger4"});
}

QStringList RightFingerNames() {
    return Plain({"str_MarkNone", "str_FingerT", "str_FingerI", "str_FingerM", "str_FingerA", "str_FingerO"});
}

}  // namespace Quillon::Forms
