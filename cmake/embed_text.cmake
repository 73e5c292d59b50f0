cmake_minimum_required(VERSION 3.25)

# Writes a C++ source with the text of some files, one after the other, as the function that dialog_scripts.h declares.
# An array of numbers, because compilers limit the length of a string.
#
# cmake -DFUNCTION=galleryScript "-DFILES=common.jsx;gallery.jsx" -DOUTPUT=gallery_script.cpp -P embed_text.cmake
set(hex "")
foreach(file IN LISTS FILES)
  file(READ "${file}" bytes HEX)
  string(APPEND hex "${bytes}")
  if(NOT bytes MATCHES "0a$")
    string(APPEND hex "0a")
  endif()
endforeach()
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," numbers "${hex}")
string(REGEX REPLACE "(................................................................................)" "\\1\n" numbers
                     "${numbers}")
file(WRITE "${OUTPUT}" "#include \"ui/dialog_scripts.h\"

namespace quiltor {

std::string_view ${FUNCTION}() {
  static constexpr char kText[] = {
${numbers}
  };
  return {kText, sizeof kText};
}

}  // namespace quiltor
")
