// A text that is looked for in many others, as online/text_pattern.h.
(function () {
  'use strict';

  const CAPITAL_I_WITH_DOT = 0x130;
  const NO_BREAK_SPACE = 0xa0;

  // The simple lower-case form of each code point, as far as it was asked for. What JavaScript gives for one character
  // is that form, but for U+0130, which becomes two.
  const lower = new Map();
  function lowerOf(code) {
    let found = lower.get(code);
    if (found === undefined) {
      found = String.fromCodePoint(code).toLowerCase().codePointAt(0);
      lower.set(code, found);
    }
    return found;
  }

  // A no-break space is a blank; without the case, letters are the same when their lower-case forms are.
  function fold(code, matchesCase) {
    if (code === NO_BREAK_SPACE) return 0x20;
    if (matchesCase || code === CAPITAL_I_WITH_DOT || code >= quill.UNKNOWN) return code;
    if (code < 0x80) return code >= 0x41 && code <= 0x5a ? code + 0x20 : code;
    return lowerOf(code);
  }

  quill.TextPattern = class {
    constructor(text, matchesCase) {
      this.text = text;
      this.matchesCase = matchesCase;
      this.codes = Array.from(text, (char) => fold(char.codePointAt(0), matchesCase));
      // For each beginning of the pattern, how long the longest shorter one is that it also ends with.
      this.fallback = new Array(this.codes.length).fill(0);
      for (let i = 1, length = 0; i < this.codes.length; ++i) {
        while (length > 0 && this.codes[i] !== this.codes[length]) length = this.fallback[length - 1];
        if (this.codes[i] === this.codes[length]) ++length;
        this.fallback[i] = length;
      }
    }

    get length() {
      return this.codes.length;
    }

    equals(text, matchesCase) {
      return this.text === text && this.matchesCase === matchesCase;
    }

    // Where it begins in the codes from `from` on, each behind the one before. O(codes), whatever the pattern repeats.
    findAll(codes, from, until) {
      const found = [];
      if (this.length === 0) return found;
      for (let i = from, length = 0; i < until; ++i) {
        const code = fold(codes[i], this.matchesCase);
        while (length > 0 && code !== this.codes[length]) length = this.fallback[length - 1];
        if (code === this.codes[length]) ++length;
        if (length < this.length) continue;
        found.push(i + 1 - length);
        length = 0;
      }
      return found;
    }
  };
})();
