# Called by quill_embed_picture: writes OUT, a C++ constant NAME with the bytes of FILE.
file(READ ${FILE} hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1\" \"" literal "${hex}")
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
file(WRITE ${OUT} "#include \"shell/embedded_files.h\"\n\nnamespace quill::shell {\n\n"
  "const std::string_view ${NAME}(\"${literal}\", ${size});\n\n}  // namespace quill::shell\n")
