#include "tools/equation_palette.h"

#include <iterator>

namespace quill::tools {
namespace {

using C = EquationConstruct;

constexpr C kFractions[] = {
    {"□⁄□", R"(\frac{□}{□})"},
    {"½", R"(\tfrac{□}{□})"},
    {"□/□", R"({□}/{□})"},
    {"□²", R"({□}^{□})"},
    {"□ₙ", R"({□}_{□})"},
    {"□ₙ²", R"({□}_{□}^{□})"},
    {"√□", R"(\sqrt{□})"},
    {"∛□", R"(\sqrt[3]{□})"},
    {"ⁿ√□", R"(\sqrt[□]{□})"},
    {"(□¦□)", R"(\binom{□}{□})"},
    {"□/(1+…)", R"(\cfrac{□}{□+\cfrac{□}{□}})"},
};

constexpr C kSums[] = {
    {"∑", R"(\sum_{□}^{□} □)"},    {"∏", R"(\prod_{□}^{□} □)"},   {"∐", R"(\coprod_{□}^{□} □)"},
    {"⋃", R"(\bigcup_{□}^{□} □)"}, {"⋂", R"(\bigcap_{□}^{□} □)"}, {"lim", R"(\lim_{□\to □} □)"},
    {"max", R"(\max_{□} □)"},      {"min", R"(\min_{□} □)"},      {"log", R"(\log_{□} □)"},
};

constexpr C kIntegrals[] = {
    {"∫", R"(\int □\,d□)"},
    {"∫ₐᵇ", R"(\int_{□}^{□} □\,d□)"},
    {"∬", R"(\iint_{□} □\,d□)"},
    {"∭", R"(\iiint_{□} □\,d□)"},
    {"∮", R"(\oint_{□} □\,d□)"},
    {"d/dx", R"(\frac{d□}{d□})"},
    {"∂/∂x", R"(\frac{\partial □}{\partial □})"},
};

constexpr C kBrackets[] = {
    {"(□)", R"(\left(□\right))"},
    {"[□]", R"(\left[□\right])"},
    {"{□}", R"(\left\{□\right\})"},
    {"|□|", R"(\left|□\right|)"},
    {"‖□‖", R"(\left\|□\right\|)"},
    {"⟨□⟩", R"(\left\langle □\right\rangle)"},
    {"⌊□⌋", R"(\left\lfloor □\right\rfloor)"},
    {"⌈□⌉", R"(\left\lceil □\right\rceil)"},
    {"⏞", R"(\overbrace{□}^{□})"},
    {"⏟", R"(\underbrace{□}_{□})"},
};

constexpr C kMatrices[] = {
    {"(⁚⁚)", R"(\begin{pmatrix} □ & □ \\ □ & □ \end{pmatrix})"},
    {"[⁚⁚]", R"(\begin{bmatrix} □ & □ \\ □ & □ \end{bmatrix})"},
    {"|⁚⁚|", R"(\begin{vmatrix} □ & □ \\ □ & □ \end{vmatrix})"},
    {"(⋮⋮⋮)", R"(\begin{pmatrix} □ & □ & □ \\ □ & □ & □ \\ □ & □ & □ \end{pmatrix})"},
    {"(⋮)", R"(\begin{pmatrix} □ \\ □ \\ □ \end{pmatrix})"},
    {"{⁚", R"(\begin{cases} □ & \text{if } □ \\ □ & \text{otherwise} \end{cases})"},
    {"=⁚", R"(\begin{aligned} □ &= □ \\ &= □ \end{aligned})"},
};

constexpr C kGreek[] = {
    {"α", R"(\alpha)"}, {"β", R"(\beta)"},  {"γ", R"(\gamma)"},  {"δ", R"(\delta)"}, {"ε", R"(\varepsilon)"},
    {"ζ", R"(\zeta)"},  {"η", R"(\eta)"},   {"θ", R"(\theta)"},  {"κ", R"(\kappa)"}, {"λ", R"(\lambda)"},
    {"μ", R"(\mu)"},    {"ν", R"(\nu)"},    {"ξ", R"(\xi)"},     {"π", R"(\pi)"},    {"ρ", R"(\rho)"},
    {"σ", R"(\sigma)"}, {"τ", R"(\tau)"},   {"φ", R"(\varphi)"}, {"χ", R"(\chi)"},   {"ψ", R"(\psi)"},
    {"ω", R"(\omega)"}, {"Γ", R"(\Gamma)"}, {"Δ", R"(\Delta)"},  {"Θ", R"(\Theta)"}, {"Λ", R"(\Lambda)"},
    {"Σ", R"(\Sigma)"}, {"Φ", R"(\Phi)"},   {"Ω", R"(\Omega)"},
};

constexpr C kRelations[] = {
    {"≤", R"(\le)"},     {"≥", R"(\ge)"},       {"≠", R"(\ne)"},        {"≈", R"(\approx)"},
    {"≡", R"(\equiv)"},  {"∼", R"(\sim)"},      {"∝", R"(\propto)"},    {"∈", R"(\in)"},
    {"∉", R"(\notin)"},  {"⊂", R"(\subset)"},   {"⊆", R"(\subseteq)"},  {"∪", R"(\cup)"},
    {"∩", R"(\cap)"},    {"±", R"(\pm)"},       {"×", R"(\times)"},     {"·", R"(\cdot)"},
    {"∞", R"(\infty)"},  {"∂", R"(\partial)"},  {"∇", R"(\nabla)"},     {"∀", R"(\forall)"},
    {"∃", R"(\exists)"}, {"∅", R"(\emptyset)"}, {"ℝ", R"(\mathbb{R})"}, {"…", R"(\dots)"},
};

constexpr C kArrows[] = {
    {"→", R"(\to)"},
    {"←", R"(\leftarrow)"},
    {"↔", R"(\leftrightarrow)"},
    {"⇒", R"(\Rightarrow)"},
    {"⇔", R"(\Leftrightarrow)"},
    {"↦", R"(\mapsto)"},
    {"↑", R"(\uparrow)"},
    {"↓", R"(\downarrow)"},
    {"⇌", R"(\rightleftharpoons)"},
    {"□→", R"(\xrightarrow{□})"},
};

constexpr C kAccents[] = {
    {"□̂", R"(\hat{□})"},         {"□̃", R"(\tilde{□})"},       {"□̄", R"(\bar{□})"},
    {"□⃗", R"(\vec{□})"},         {"□̇", R"(\dot{□})"},         {"□̈", R"(\ddot{□})"},
    {"‾□‾", R"(\overline{□})"},  {"_□_", R"(\underline{□})"}, {"⌒□", R"(\widehat{□})"},
    {"□=", R"(\overset{□}{□})"}, {"𝐛", R"(\mathbf{□})"},      {"abc", R"(\text{□})"},
};

constexpr EquationGroup kGroups[] = {
    {"strEquationFractions", kFractions}, {"strEquationSums", kSums},
    {"strEquationIntegrals", kIntegrals}, {"strEquationBrackets", kBrackets},
    {"strEquationMatrices", kMatrices},   {"strEquationGreek", kGreek},
    {"strEquationRelations", kRelations}, {"strEquationArrows", kArrows},
    {"strEquationAccents", kAccents},
};

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

std::span<const EquationGroup> EquationPalette() {
  return kGroups;
}

PlacedConstruct Place(const EquationConstruct& construct, std::string_view selection) {
  std::string before(construct.latex);
  const std::size_t first = before.find(kPlaceholder);
  if (first == before.npos) return {before + (IsLetter(before.back()) ? " " : ""), "", ""};
  std::size_t next = first;
  if (!selection.empty()) {
    before.replace(first, kPlaceholder.size(), selection);
    next = before.find(kPlaceholder, first + selection.size());
    if (next == before.npos) return {before, "", ""};
  }
  return {before.substr(0, next), std::string(kPlaceholder), before.substr(next + kPlaceholder.size())};
}

}  // namespace quill::tools
