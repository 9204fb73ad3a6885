// The content room against general parsers on the same bytes, and its growth with the input.
//
// Names: <work>/<shape> for the comparisons, Linear/<helper>/<shape>/<factor> for the growth, where the
// time at factor 10 divided by the time at factor 1 should stay near 10.
#include <benchmark/benchmark.h>
#include <gumbo.h>
#include <libxml/HTMLparser.h>
#include <libxml/parser.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "content/element_lookup.h"
#include "content/entities.h"
#include "content/first_link.h"
#include "content/html_normalizer.h"
#include "content/strip_tags.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "content/working_document.h"
#include "onenote_shapes.h"
#include "page_timing.h"
#include "platform/posix/memory_policy.h"

namespace {

using namespace quill::content;
using Work = std::function<void(const std::string&)>;

constexpr std::size_t kShapeSize = 3'000'000;
// Small enough that both factors stay in the same cache and get their memory in the same way.
constexpr std::size_t kLinearSize = 40'000;

void ParseWithLibxmlHtml(const std::string& html) {
  htmlDocPtr doc =
      htmlReadMemory(html.data(), static_cast<int>(html.size()), "", "UTF-8",
                     HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET | XML_PARSE_HUGE);
  benchmark::DoNotOptimize(doc);
  xmlFreeDoc(doc);
}

void ParseWithLibxmlXml(const std::string& xml) {
  xmlDocPtr doc = xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "", "UTF-8",
                                XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  if (doc == nullptr) std::abort();
  xmlFreeDoc(doc);
}

void ParseWithGumbo(const std::string& html) {
  GumboOutput* output = gumbo_parse_with_options(&kGumboDefaultOptions, html.data(), html.size());
  benchmark::DoNotOptimize(output);
  gumbo_destroy_output(&kGumboDefaultOptions, output);
}

/// A command hands its text over to the document, so the copy that gives each round one is not timed.
void TimeParse(const std::string& name, std::string xml) {
  benchmark::RegisterBenchmark(name.c_str(), [xml = std::move(xml)](benchmark::State& state) {
    for (auto _ : state) {
      state.PauseTiming();
      std::string own = xml;
      state.ResumeTiming();
      if (!WorkingDocument::Parse(std::move(own))) std::abort();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * xml.size()));
  })->Unit(benchmark::kMicrosecond);
}

void GoThereAndBack(const std::string& fragment) {
  const auto document = WorkingDocument::Parse(HtmlToXml(fragment));
  if (!document) std::abort();
  benchmark::DoNotOptimize(XmlToHtml(document->Xml()));
}

void CompareOn(const std::string& shape, const std::string& fragment) {
  const std::string xml = HtmlToXml(fragment);
  const auto document = std::make_shared<const WorkingDocument>(std::move(*WorkingDocument::Parse(xml)));
  quill::bench::TimePage("HtmlToXml/" + shape, fragment,
                         [](const auto& in) { benchmark::DoNotOptimize(HtmlToXml(in)); });
  quill::bench::TimePage("libxml2_html/" + shape, fragment, ParseWithLibxmlHtml);
  quill::bench::TimePage("gumbo/" + shape, fragment, ParseWithGumbo);
  TimeParse("Parse/" + shape, xml);
  quill::bench::TimePage("libxml2_xml/" + shape, xml, ParseWithLibxmlXml);
  quill::bench::TimePage("Xml/" + shape, xml,
                         [document](const auto&) { benchmark::DoNotOptimize(document->Xml()); });
  quill::bench::TimePage("XmlToHtml/" + shape, document->Xml(),
                         [](const auto& in) { benchmark::DoNotOptimize(XmlToHtml(in)); });
  quill::bench::TimePage("ThereAndBack/" + shape, fragment, GoThereAndBack);
}

std::string Repeated(std::string_view piece, std::size_t factor) {
  std::string text;
  while (text.size() < kLinearSize * factor) text += piece;
  return text;
}

struct Shape {
  const char* name;
  std::function<std::string(std::size_t factor)> make;
};

void GrowWith(const std::string& helper, const std::vector<Shape>& shapes, const Work& work) {
  for (const Shape& shape : shapes) {
    for (const std::size_t factor : {1, 10}) {
      quill::bench::TimePage("Linear/" + helper + "/" + shape.name + "/" + std::to_string(factor),
                             shape.make(factor), work);
    }
  }
}

Shape Piece(const char* name, std::string_view piece) {
  return {name, [piece](std::size_t factor) { return Repeated(piece, factor); }};
}

void MeasureGrowth() {
  const Shape text{"text",
                   [](std::size_t factor) { return quill::bench::TextFragment(kLinearSize * factor); }};
  const Shape manyAttributes{"attributes", [](std::size_t factor) {
                               std::string xml = "<quillText ";
                               for (std::size_t i = 0; xml.size() < kLinearSize * factor; ++i) {
                                 xml.append(1, 'a').append(std::to_string(i)).append("='' ");
                               }
                               return xml + "/>";
                             }};
  GrowWith("HtmlToXml",
           {text, Piece("less", "<"), Piece("conditional", "<![if "), Piece("alt", "alt=\""),
            Piece("quotes", "\""), Piece("breaks", "<BR "), Piece("bare", "width="),
            Piece("masked", "alt=\"=\"width=alt=\"=\" ")},
           [](const auto& in) { benchmark::DoNotOptimize(HtmlToXml(in)); });
  GrowWith("Parse", {Piece("less", "<"), Piece("brackets", "]]"), manyAttributes},
           [](const auto& in) { benchmark::DoNotOptimize(WorkingDocument::Parse(in).ok()); });
  GrowWith("ThereAndBack", {text}, GoThereAndBack);
  GrowWith("XmlToHtml", {Piece("spaces", "\xC2\xA0"), Piece("ends", "<quillText></quillTex")},
           [](const auto& in) { benchmark::DoNotOptimize(XmlToHtml(in)); });
  GrowWith("DecodeHtmlEntities",
           {text, Piece("open", "&#"), Piece("closed", ";&"), Piece("nested", "&#38;#38;"),
            Piece("names", "&eacute;")},
           [](const auto& in) { benchmark::DoNotOptimize(DecodeHtmlEntities(in)); });
  GrowWith("DecodeBasicEntities", {text},
           [](const auto& in) { benchmark::DoNotOptimize(DecodeBasicEntities(in)); });
  GrowWith("EscapeXmlText", {Piece("less", "<")},
           [](const auto& in) { benchmark::DoNotOptimize(EscapeXmlText(in)); });
  GrowWith("StripTags", {text, Piece("less", "<"), Piece("tags", "<b>")},
           [](const auto& in) { benchmark::DoNotOptimize(StripTags(in)); });
  GrowWith("GetFirstLink", {text, Piece("links", "<a")},
           [](const auto& in) { benchmark::DoNotOptimize(GetFirstLink(in).text); });
  GrowWith("StripFragmentMarkers", {Piece("starts", "<!--Start")},
           [](const auto& in) { benchmark::DoNotOptimize(StripFragmentMarkers(in)); });
  GrowWith("PercentUnescape", {Piece("percents", "%"), Piece("escapes", "%C3%A9")},
           [](const auto& in) { benchmark::DoNotOptimize(PercentUnescape(in)); });
  GrowWith("ToUpper", {text}, [](const auto& in) { benchmark::DoNotOptimize(ToUpper(in)); });
}

}  // namespace

// Measured under the memory policy that the application runs under.
int main(int argc, char** argv) {
  quill::platform::KeepFreedMemory();
  CompareOn("text", quill::bench::TextFragment(kShapeSize));
  CompareOn("table", quill::bench::TableFragment(kShapeSize));
  CompareOn("image", quill::bench::ImageFragment(kShapeSize));
  MeasureGrowth();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
