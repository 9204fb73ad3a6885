// Run by the build: writes the blank section that is compiled into the program.
#include <exception>
#include <fstream>
#include <iostream>

#include "files/section_file/one_section.h"

int main(int count, char** arguments) try {
  if (count != 2) {
    std::cerr << "Usage: section-file FILE\n";
    return 2;
  }
  const std::string section = quill::section_file::OneSection();
  std::ofstream file(arguments[1], std::ios::binary | std::ios::trunc);
  file.write(section.data(), static_cast<std::streamsize>(section.size()));
  if (file.close(), !file) {
    std::cerr << "section-file: " << arguments[1] << " cannot be written\n";
    return 1;
  }
  return 0;
} catch (const std::exception& problem) {
  std::cerr << "section-file: " << problem.what() << '\n';
  return 1;
}
