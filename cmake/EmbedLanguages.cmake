# cmake -DFILES=a.txt,b.txt -DOUTPUT=file.cpp -P EmbedLanguages.cmake
# Writes a source that holds language files as text, each under its name without the ending.
string(REPLACE "," ";" FILES "${FILES}")
set(entries "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND entries "    {\"${name}\", R\"~~~~(${text})~~~~\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"core/mod_Language.h\"

namespace Quillon::Core {

namespace {
constexpr BuiltInLanguage Languages[] = {
${entries}};
}  // namespace

std::span<const BuiltInLanguage> BuiltInLanguages() { return Languages; }

}  // namespace Quillon::Core
")
