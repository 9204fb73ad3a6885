// The text of one block as it is shown, and where in the source each of its characters stands; as
// online/block_text.h. White space of the source is one blank, however long and in however many pieces, and nothing at
// the beginning and the end.
(function () {
  'use strict';

  const BLANK = 0x20;
  const isSpace = (code) => code === BLANK || code === 0x0a || code === 0x0d || code === 0x09;

  quill.BlockText = class {
    constructor(pieces) {
      this.pieces = pieces;
      this.codes = [];
      this.firstRange = [];  // of each character
      this.owners = [];      // of each range: which piece, where it begins and ends there
      this.begins = [];
      this.ends = [];
      pieces.forEach((piece, owner) => this.append(piece.source, owner));
      this.finish();
    }

    append(source, owner) {
      for (let at = 0; at < source.length;) {
        let code = source.codePointAt(at);
        let length = code > 0xffff ? 2 : 1;
        if (code === 0x26) ({code, length} = quill.readReference(source, at));
        this.addChar(isSpace(code) ? BLANK : code, owner, at, at + length);
        at += length;
      }
    }

    // White space behind a blank is a part of that blank: it must not come to light when the blank goes.
    addChar(code, owner, begin, end) {
      const last = this.codes.at(-1);
      if (code === BLANK && last === undefined) return;
      if (code !== BLANK || last !== BLANK) {
        this.codes.push(code);
        this.firstRange.push(this.owners.length);
      }
      this.owners.push(owner);
      this.begins.push(begin);
      this.ends.push(end);
    }

    finish() {
      if (this.codes.at(-1) !== BLANK) return;
      this.owners.length = this.firstRange.pop();
      this.codes.pop();
    }

    // What has to go from the source for these characters to go, in order, neighbours joined.
    rangesOf(first, last) {
      const joined = [];
      const end = last < this.firstRange.length ? this.firstRange[last] : this.owners.length;
      for (let i = this.firstRange[first]; i < end; ++i) {
        const piece = this.pieces[this.owners[i]];
        const before = joined.at(-1);
        if (before && before.piece === piece && before.end === this.begins[i]) {
          before.end = this.ends[i];
        } else {
          joined.push({piece, begin: this.begins[i], end: this.ends[i]});
        }
      }
      return joined;
    }

    // The first character that stands at or behind a place in the source.
    indexAt(piece, offset) {
      const owner = this.pieces.indexOf(piece);
      const isBehind = (i) => this.owners[i] > owner || (this.owners[i] === owner && this.begins[i] >= offset);
      const index = this.firstRange.findIndex(isBehind);
      return index < 0 ? this.codes.length : index;
    }
  };
})();
