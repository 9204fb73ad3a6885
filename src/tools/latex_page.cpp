#include "tools/latex_page.h"

#include <algorithm>
#include <array>

namespace quill::tools {
namespace {

constexpr std::string_view kDocumentType = "<!DOCTYPE HTML PUBLIC '-//W3C//DTD HTML 4.01 Transitional//EN'>";

/// A second wall should markup get into the page after all: nothing in an attribute runs, nothing is
/// embedded.
constexpr std::string_view kPolicy =
    "<meta http-equiv='Content-Security-Policy' content=\"script-src-attr 'none'; object-src 'none'; "
    "frame-src 'none'; base-uri 'none'; form-action 'none'\">";

constexpr std::string_view kNativeScripts = R"(<script type="text/x-mathjax-config">
MathJax.Hub.Config({tex2jax: {inlineMath: [['$','$'], ['\\(','\\)']]},'HTML-CSS': {showMathMenu: false},showProcessingMessages: false,CommonHTML: {scale: 100},messageStyle: 'none'     });
var g_LaTeX = '';
function GetLaTeX() { g_LaTeX = document.getElementsByClassName('MJX_Assistive_MathML')[0].innerHTML; return g_LaTeX;}
</script>)";

// The picture is drawn from the SVG as XML: HTML's way of writing it knows entities that a picture may not
// use.
constexpr std::string_view kPictureScripts = R"(<script>
var g_QuillPngResult = '';var g_QuillSvgResult = '';
var g_QuillPngWidth = 0;var g_QuillPngHeight = 0;
function get_svgpng() {
  g_QuillPngResult = '';
  var svg = document.getElementsByTagName('svg')[0];
  g_QuillSvgResult = svg ? svg.outerHTML : '';
  var image = new Image();
  image.onload = function() {
    var canvas = document.createElement('canvas');
    g_QuillPngWidth = image.width;
    g_QuillPngHeight = image.height;
    canvas.width = image.width * SCALE;
    canvas.height = image.height * SCALE;
    canvas.getContext('2d').drawImage(image, 0, 0, canvas.width, canvas.height);
    g_QuillPngResult = canvas.toDataURL('image/png');
    external.JsCall('Save');
  };
  image.onerror = function() { external.JsCall('Save'); };
  var xml = svg ? new XMLSerializer().serializeToString(svg) : '';
  image.src = 'data:image/svg+xml;base64,' + btoa(unescape(encodeURIComponent(xml)));
  return 'get_end';
}
</script>)";

constexpr auto kChangingCommands = std::to_array<std::string_view>({"begingroup",
                                                                    "DeclareMathOperator",
                                                                    "DeclarePairedDelimiter",
                                                                    "def",
                                                                    "definecolor",
                                                                    "endgroup",
                                                                    "gdef",
                                                                    "global",
                                                                    "label",
                                                                    "let",
                                                                    "mathtoolsset",
                                                                    "newcommand",
                                                                    "newenvironment",
                                                                    "Newextarrow",
                                                                    "newlabel",
                                                                    "newtagform",
                                                                    "providecommand",
                                                                    "renewcommand",
                                                                    "renewenvironment",
                                                                    "renewtagform",
                                                                    "require",
                                                                    "setOptions",
                                                                    "unicode",
                                                                    "usetagform"});

std::string Escaped(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 16);
  for (const char c : text) {
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else {
      out += c;
    }
  }
  return out;
}

std::string NativePage(std::string_view formula, std::string_view base) {
  std::string page(kDocumentType);
  page.append("<html><head><meta charset='utf-8'><META content='IE=edge' http-equiv='X-UA-Compatible'>");
  page.append(kPolicy)
      .append(kNativeScripts)
      .append("<script type='text/javascript' async src='")
      .append(base);
  page.append(kMathJax2Path).append("MathJax.js?config=TeX-MML-AM_CHTML'></script></head>");
  page.append("<body style='border: 0px; overflow: auto; '><div id='equationdiv'><span id='equationspan'>");
  return page.append(formula).append("</span></div></body></html>");
}

std::string PicturePage(std::string_view formula, std::string_view base) {
  std::string scripts(kPictureScripts);
  for (std::size_t at = scripts.find("SCALE"); at != scripts.npos; at = scripts.find("SCALE")) {
    scripts.replace(at, 5, std::to_string(kPictureScale));
  }
  std::string page(kDocumentType);
  page.append("<html><head><meta charset='utf-8'>").append(kPolicy);
  page.append("<script id='MathJax-script' async src='").append(base);
  page.append(kMathJax3Path).append("es5/tex-svg.js'></script>").append(scripts);
  return page.append("</head><body><span id='equation'>").append(formula).append("</span></body></html>");
}

}  // namespace

std::string LatexHtmlFromStr(std::string_view formula, EquationForm form, std::string_view base) {
  const std::string text = Escaped(formula);
  return form == EquationForm::Native ? NativePage(text, base) : PicturePage(text, base);
}

bool ChangesLaterFormulas(std::string_view formula) {
  return std::any_of(kChangingCommands.begin(), kChangingCommands.end(), [&](std::string_view command) {
    for (std::size_t at = formula.find(command); at != formula.npos; at = formula.find(command, at + 1)) {
      if (at > 0 && formula[at - 1] == '\\') return true;
    }
    return false;
  });
}

}  // namespace quill::tools
