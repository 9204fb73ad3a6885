# Called by quill_embed_pages: writes OUT, the function practice::BuiltInPageFile over the FILES.
set(rows)
foreach(file ${FILES})
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1\" \"" literal "${hex}")
  string(LENGTH "${hex}" digits)
  math(EXPR size "${digits} / 2")
  string(APPEND rows "  if (name == \"${name}\") return {\"${literal}\", ${size}};\n")
endforeach()
file(WRITE ${OUT} "#include \"practice/built_in_pages.h\"\n\nnamespace quill::practice {\n\n"
  "std::string_view BuiltInPageFile(std::string_view name) {\n${rows}  return {};\n}\n\n"
  "}  // namespace quill::practice\n")
