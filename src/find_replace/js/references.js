// In the program's own script world; the page itself runs no script. The files of this folder read a page's source
// by the rules of online/page_edit.h, so that the window finds and sends what the command line does.
globalThis.quill = {};

// References of a source ("&amp;", "&#233;"): which character each stands for. The names are those of
// online/block_text.cpp; the engine knows more of them, which are shown but not found.
(function () {
  'use strict';

  const LATIN1 =
    'nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute ' +
    'micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig ' +
    'Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times Oslash ' +
    'Ugrave Uacute Ucirc Uuml Yacute THORN szlig agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ' +
    'ecirc euml igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml divide oslash ugrave uacute ucirc ' +
    'uuml yacute thorn yuml';
  const OTHERS = {
    amp: 0x26, lt: 0x3c, gt: 0x3e, quot: 0x22, apos: 0x27, ndash: 0x2013, mdash: 0x2014, lsquo: 0x2018,
    rsquo: 0x2019, sbquo: 0x201a, ldquo: 0x201c, rdquo: 0x201d, bdquo: 0x201e, bull: 0x2022, hellip: 0x2026,
    dagger: 0x2020, permil: 0x2030, prime: 0x2032, Prime: 0x2033, lsaquo: 0x2039, rsaquo: 0x203a, euro: 0x20ac,
    trade: 0x2122, larr: 0x2190, uarr: 0x2191, rarr: 0x2192, darr: 0x2193, harr: 0x2194, minus: 0x2212, ne: 0x2260,
    le: 0x2264, ge: 0x2265, asymp: 0x2248, infin: 0x221e, ensp: 0x2002, emsp: 0x2003, thinsp: 0x2009, zwnj: 0x200c,
    zwj: 0x200d, check: 0x2713, OElig: 0x152, oelig: 0x153, Scaron: 0x160, scaron: 0x161, Yuml: 0x178,
  };
  const NAMES = new Map(Object.entries(OTHERS));
  LATIN1.split(' ').forEach((name, i) => NAMES.set(name, 0xa0 + i));

  // A code that is none, for what is not known: it equals nothing that can be typed.
  quill.UNKNOWN = 0x110000;

  const NAMED = /&([0-9A-Za-z]+);/y;
  const NUMBERED = /&#(?:[xX]([0-9A-Fa-f]+)|([0-9]+))(;?)/y;

  quill.isXmlChar = function (code) {
    if (code < 0x20) return code === 0x09 || code === 0x0a || code === 0x0d;
    return code <= 0xd7ff || (code >= 0xe000 && code <= 0xfffd) || (code >= 0x10000 && code <= 0x10ffff);
  };

  function matchAt(pattern, text, at) {
    pattern.lastIndex = at;
    return pattern.exec(text);
  }

  // The reference at an "&": {code, length}. What is no reference is an "&" by itself.
  quill.readReference = function (text, at) {
    const numbered = matchAt(NUMBERED, text, at);
    if (numbered) {
      const [all, hex, decimal, end] = numbered;
      const code = hex ? parseInt(hex, 16) : parseInt(decimal, 10);
      // Browsers read some numbers as characters of another set.
      const isPlain = end && quill.isXmlChar(code) && !(code >= 0x80 && code < 0xa0);
      return {code: isPlain ? code : quill.UNKNOWN, length: all.length};
    }
    const named = matchAt(NAMED, text, at);
    if (!named) return {code: 0x26, length: 1};
    return {code: NAMES.get(named[1]) ?? quill.UNKNOWN, length: named[0].length};
  };

  // What the engine shows for a reference that we do not know.
  const foreign = new Map();
  function askEngine(reference) {
    if (!foreign.has(reference)) {
      const parsed = new DOMParser().parseFromString(`<i>${reference}</i>`, 'text/html');
      foreign.set(reference, parsed.body.textContent);
    }
    return foreign.get(reference);
  }

  // A part of the source as it is shown.
  quill.decode = function (source) {
    let at = source.indexOf('&');
    if (at < 0) return source;
    let text = '';
    let done = 0;
    for (; at >= 0; at = source.indexOf('&', done)) {
      const {code, length} = quill.readReference(source, at);
      const isKnown = code !== quill.UNKNOWN;
      text += source.slice(done, at);
      text += isKnown ? String.fromCodePoint(code) : askEngine(source.slice(at, at + length));
      done = at + length;
    }
    return text + source.slice(done);
  };

  // A typed text as it stands in the source. What may stand in no page is left out.
  quill.encode = function (typed) {
    const allowed = Array.from(typed).filter((char) => quill.isXmlChar(char.codePointAt(0)));
    return allowed.join('').replaceAll('&', '&amp;').replaceAll('<', '&lt;').replaceAll('>', '&gt;');
  };
})();
