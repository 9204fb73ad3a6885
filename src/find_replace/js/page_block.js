// One block of a page: the pieces of source whose text is read together. It can be searched and changed; its tags
// always stay.
(function () {
  'use strict';

  const OPEN_REFERENCE = /^&#?[0-9A-Za-z]*$/;

  // The edits ({begin, end, text}, in order) made in a source, and where the last of them ends then.
  //
  // A "&" by itself must not become the beginning of a reference by what comes behind it: "R&D" with "amp;" for the
  // "D" becomes "R&amp;amp;".
  function edited(source, edits) {
    const suspects = [];
    let out = '';
    let at = 0;
    for (const edit of edits) {
      const kept = source.slice(at, edit.begin);
      const ampersand = kept.lastIndexOf('&');
      if (ampersand >= 0 && OPEN_REFERENCE.test(kept.slice(ampersand))) suspects.push(out.length + ampersand);
      out += kept + edit.text;
      at = edit.end;
    }
    let end = out.length;
    out += source.slice(at);
    for (const suspect of suspects.reverse()) {
      if (quill.readReference(out, suspect).length === 1) continue;
      out = out.slice(0, suspect) + '&amp;' + out.slice(suspect + 1);
      end += '&amp;'.length - 1;
    }
    return {source: out, end};
  }

  quill.PageBlock = class {
    constructor(number, pieces, level) {
      this.number = number;
      this.pieces = pieces;
      this.target = level.target;
      this.kind = level.kind;  // "cell", "item", "heading", "paragraph" or "text"
      this.starts = [];        // of the matches, in characters
      this.codes = null;       // of its text, once they have been asked for
    }

    text() {
      return new quill.BlockText(this.pieces);
    }

    // Looks for the pattern; never across the character `seam`, when there is one.
    search(pattern, seam = 0) {
      this.codes ??= this.text().codes;
      this.starts = pattern.findAll(this.codes, 0, seam);
      for (const start of pattern.findAll(this.codes, seam, this.codes.length)) this.starts.push(start);
    }

    // How many screens away it is: 0 when a part of it can be seen.
    get distance() {
      const first = this.pieces[0].nodes[0]?.parentElement;
      const last = this.pieces.at(-1).nodes[0]?.parentElement;
      if (!first || !last) return Infinity;
      const above = -last.getBoundingClientRect().bottom;
      const below = first.getBoundingClientRect().top - innerHeight;
      return Math.max(0, above, below) / innerHeight;
    }

    get isChanged() {
      return this.pieces.some((piece) => piece.source !== piece.original);
    }

    // Puts a text, as it stands in a source, in the place of each of these matches: in the formatting of their first
    // characters. Gives the first character behind the last of them.
    replace(starts, length, replacement) {
      const text = this.text();
      const edits = new Map();
      let last = null;
      for (const start of starts) {
        const ranges = text.rangesOf(start, start + length);
        last = ranges[0].piece;
        ranges.forEach(({piece, begin, end}, i) => {
          if (!edits.has(piece)) edits.set(piece, []);
          edits.get(piece).push({begin, end, text: i === 0 ? replacement : ''});
        });
      }
      let behind = 0;
      for (const [piece, list] of edits) {
        const {source, end} = edited(piece.source, list);
        piece.source = source;
        if (piece === last) behind = end;
      }
      const changed = this.text();
      this.codes = changed.codes;
      return changed.indexAt(last, behind);
    }

    // The text before and now, as it is shown.
    change() {
      const shown = (part) => {
        const text = quill.decode(this.pieces.map((piece) => piece[part]).join(''));
        return text.replace(/[ \t\r\n]+/g, ' ').replace(/^ | $/g, '');
      };
      return {before: shown('original'), after: shown('source')};
    }
  };
})();
