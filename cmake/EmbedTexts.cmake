# cmake -DFILES=a.txt,b.txt -DTYPE=BuiltInLanguage -DNAMESPACE=Quillon::Core -DHEADER=core/x.h -DFUNCTION=f -DOUTPUT=file.cpp
# Writes a source whose FUNCTION gives text files, each under its name without the ending.
string(REPLACE "," ";" FILES "${FILES}")
set(entries "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND entries "    {\"${name}\", R\"~~~~(${text})~~~~\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"${HEADER}\"

namespace ${NAMESPACE} {

namespace {
constexpr ${TYPE} Texts[] = {
${entries}};
}  // namespace

std::span<const ${TYPE}> ${FUNCTION}() { return Texts; }

}  // namespace ${NAMESPACE}
")
