#include "formulas.h"

namespace quill::test {
namespace {

constexpr NamedFormula kFormulas[] = {
    {"accents", R"(\hat{a}+\tilde{b}+\bar{c}+\vec{d}+\dot{e}+\ddot{f})"},
    {"aligned", R"(\begin{aligned} (a+b)^2 &= (a+b)(a+b) \\ &= a^2+2ab+b^2 \end{aligned})"},
    {"arrows", R"(A \xrightarrow{f} B \Longleftrightarrow C \mapsto D)"},
    {"bayes", R"(P(A\mid B)=\frac{P(B\mid A)\,P(A)}{P(B)})"},
    {"binomial", R"((x+y)^n=\sum_{k=0}^{n}\binom{n}{k}x^{n-k}y^k)"},
    {"blackboard", R"(\mathbb{N}\subset\mathbb{Z}\subset\mathbb{Q}\subset\mathbb{R}\subset\mathbb{C})"},
    {"boxed", R"(\boxed{\boldsymbol{F}=m\boldsymbol{a}})"},
    {"braces", R"(\overbrace{a+b+\cdots+z}^{26}+\underbrace{1+2+3}_{6})"},
    {"cases", R"(|x|=\begin{cases} x & \text{if } x\ge 0 \\ -x & \text{otherwise} \end{cases})"},
    {"comparison", R"(a<b \le c > d \ge e \ne f)"},
    {"continued_fraction", R"(\phi=1+\cfrac{1}{1+\cfrac{1}{1+\cdots}})"},
    {"derivative", R"(f'(x)=\lim_{h\to 0}\frac{f(x+h)-f(x)}{h})"},
    {"determinant", R"(\begin{vmatrix} a & b \\ c & d \end{vmatrix}=ad-bc)"},
    {"einstein", R"(E=mc^2)"},
    {"euler", R"(e^{i\pi}+1=0)"},
    {"gaussian", R"(\int_{-\infty}^{\infty} e^{-x^2}\,dx=\sqrt{\pi})"},
    {"greek", R"(\alpha\beta\gamma\delta\varepsilon\lambda\mu\pi\sigma\varphi\omega\Gamma\Delta\Omega)"},
    {"greetings", R"(\text{größer als 數學 } x)"},
    {"limit", R"(\lim_{n\to\infty}\left(1+\frac{1}{n}\right)^n=e)"},
    {"matrix", R"(\begin{pmatrix} 1 & 0 & 0 \\ 0 & 1 & 0 \\ 0 & 0 & 1 \end{pmatrix})"},
    {"maxwell",
     R"(\nabla\times\mathbf{B}-\frac{1}{c}\frac{\partial\mathbf{E}}{\partial t}=\frac{4\pi}{c}\mathbf{j})"},
    {"nested_roots", R"(\sqrt{2+\sqrt{2+\sqrt{2}}})"},
    {"own_command", R"(\newcommand{\R}{\mathbb{R}} f:\R^n\to\R)"},
    {"prescripts", R"({}_{6}^{14}\mathrm{C})"},
    {"product", R"(n!=\prod_{k=1}^{n}k)"},
    {"pythagoras", R"(a^2+b^2=c^2)"},
    {"quadratic", R"(x=\frac{-b\pm\sqrt{b^2-4ac}}{2a})"},
    {"root", R"(\sqrt[3]{x^3+y^3})"},
    {"sets", R"(A\cup(B\cap C)=\{x\in A : x\notin\emptyset\})"},
    {"sum", R"(\sum_{i=1}^{n} i=\frac{n(n+1)}{2})"},
    {"surface_integral",
     R"(\oint_{\partial\Sigma}\mathbf{F}\cdot d\mathbf{r}=\iint_{\Sigma}\nabla\times\mathbf{F}\cdot d\mathbf{S})"},
    {"taylor", R"(f(x)=\sum_{n=0}^{\infty}\frac{f^{(n)}(a)}{n!}(x-a)^n)"},
};

}  // namespace

std::span<const NamedFormula> IntroductoryFormulas() {
  return kFormulas;
}

}  // namespace quill::test
