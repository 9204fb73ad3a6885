#pragma once
#include <ostream>
#include <span>
#include <string_view>

namespace quill::test {

/// A formula of the kind that introductions to typesetting begin with. The name is also its golden file's.
struct NamedFormula {
  std::string_view name;
  std::string_view latex;
};

inline void PrintTo(const NamedFormula& formula, std::ostream* out) {
  *out << formula.latex;
}

std::span<const NamedFormula> IntroductoryFormulas();

}  // namespace quill::test
