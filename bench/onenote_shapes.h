#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace quill::bench {

/// Appends blocks until the fragment is at least `size` bytes long; `block(i)` is the i-th.
template <class Block>
std::string Repeat(std::size_t size, Block block) {
  std::string fragment;
  for (std::size_t i = 0; fragment.size() < size; ++i) fragment += block(i);
  return fragment;
}

inline std::string_view Sentence(std::size_t i) {
  constexpr std::string_view kSentences[] = {
      "The quarterly figures were discussed with the whole team; nobody objected to the new\r\nschedule. ",
      "Ask Ren&#233;e &amp; Tom about the offer before Friday (see the mail of last week). ",
      "\xE4\xBC\x9A\xE8\xAE\xAE\xE8\xAE\xB0\xE5\xBD\x95\xEF\xBC\x9A\xE4\xB8\x8B\xE5\x91\xA8\xE4\xB8\x80"
      "\xE5\xAE\x8C\xE6\x88\x90\xE6\xB5\x8B\xE8\xAF\x95\xE3\x80\x82",
      "Caf\xC3\xA9 bill: 12&nbsp;EUR, taxi 18&nbsp;EUR. Receipts are in the folder &quot;May&quot;. "};
  return kSentences[i % std::size(kSentences)];
}

/// Paragraphs with spans, empty lines, links and lists, as the desktop applications write them.
inline std::string TextFragment(std::size_t size) {
  return Repeat(size, [](std::size_t i) {
    std::string block = "<p style='margin:0in;font-family:Calibri;font-size:11.0pt'>" +
                        std::string(Sentence(i)) +
                        "<span\r\nstyle='font-weight:bold;mso-spacerun:yes'>&nbsp;</span>" +
                        std::string(Sentence(i + 1)) + "</p>\r\n\r\n";
    if (i % 3 == 0)
      block += "<p style='margin:0in;font-family:Calibri;font-size:11.0pt' lang=en-US>&nbsp;</p>\r\n\r\n";
    if (i % 5 == 0) {
      block +=
          "<ul type=disc style='direction:ltr;unicode-bidi:embed;margin-top:0in;margin-bottom:0in'>\r\n <li "
          "value=1 "
          "style='margin-top:0;margin-bottom:0;vertical-align:middle'><span "
          "style='font-family:Calibri;font-size:"
          "11.0pt'>" +
          std::string(Sentence(i + 2)) + "</span></li>\r\n</ul>\r\n\r\n";
    }
    if (i % 7 == 0) {
      block += "<p style='margin:0in'>See <a href=\"https://example.org/a?b=1&amp;c=" + std::to_string(i) +
               "\">the page</a><br>\r\nand the next one.</p>\r\n\r\n";
    }
    return block;
  });
}

/// Tables of eight rows and five columns.
inline std::string TableFragment(std::size_t size) {
  return Repeat(size, [](std::size_t i) {
    std::string block =
        "<div style='direction:ltr'>\r\n\r\n<table border=1 cellpadding=0 cellspacing=0 valign=top "
        "style='direction:"
        "ltr;\r\n border-collapse:collapse;border-style:solid;border-color:#A3A3A3;border-width:\r\n 1pt' "
        "title=\"\" "
        "summary=\"\">\r\n";
    for (std::size_t row = 0; row < 8; ++row) {
      block += " <tr>\r\n";
      for (std::size_t column = 0; column < 5; ++column) {
        block +=
            "  <td style='border-style:solid;border-color:#A3A3A3;border-width:1pt;\r\n  "
            "vertical-align:top;width:"
            "1.49in;padding:2.0pt 3.0pt 2.0pt 3.0pt'>\r\n  <p "
            "style='margin:0in;font-family:Calibri;font-size:"
            "11.0pt'>" +
            (column % 4 == 3 ? "&nbsp;" : std::string(Sentence(i + row + column)).substr(0, 24)) +
            "</p>\r\n  </td>\r\n";
      }
      block += " </tr>\r\n";
    }
    return block + "</table>\r\n\r\n</div>\r\n\r\n";
  });
}

/// Pictures as data URIs of about 60 KB with their recognised text, a caption below each.
inline std::string ImageFragment(std::size_t size) {
  return Repeat(size, [](std::size_t i) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string block = "<p style='margin:0in'><img width=640 height=480\r\nsrc=\"data:image/png;base64,";
    std::size_t state = i + 1;
    for (std::size_t digit = 0; digit < 60'000; ++digit) {
      state = state * 6364136223846793005u + 1442695040888963407u;
      block += kDigits[state >> 58];
    }
    return block + "\" alt=\"Machine generated alternative text:&#10;Total = 12 &lt; 20&#10;Page " +
           std::to_string(i) + "\"></p>\r\n<p style='margin:0in;font-family:Calibri;font-size:11.0pt'>" +
           std::string(Sentence(i)) + "</p>\r\n";
  });
}

}  // namespace quill::bench
