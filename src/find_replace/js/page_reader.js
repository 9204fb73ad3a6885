// Takes a page's source apart into pieces that make the same source again when they are joined. The program has made
// sure that the source is well-formed.
(function () {
  'use strict';

  const SPACE = /[ \t\r\n]*/y;
  const NAME = /[^ \t\r\n/>=]*/y;

  function endOf(pattern, text, from) {
    pattern.lastIndex = from;
    pattern.exec(text);
    return pattern.lastIndex;
  }

  function endAfter(text, mark, from) {
    const at = text.indexOf(mark, from);
    return at < 0 ? text.length : at + mark.length;
  }

  // A ">" in a quoted value does not end the tag.
  function endOfTag(text, from) {
    for (let at = from; at < text.length;) {
      const char = text[at++];
      if (char === '>') return at;
      if (char === '"' || char === "'") at = endAfter(text, char, at);
    }
    return text.length;
  }

  function readTag(source, begin) {
    const isEnd = source[begin + 1] === '/';
    const nameAt = begin + (isEnd ? 2 : 1);
    const end = endOfTag(source, nameAt);
    const kind = isEnd ? 'end' : source[end - 2] === '/' ? 'empty' : 'start';
    return {kind, name: source.slice(nameAt, endOf(NAME, source, nameAt)), source: source.slice(begin, end)};
  }

  function readPiece(source, begin) {
    if (source[begin] !== '<') {
      const end = source.indexOf('<', begin);
      return {kind: 'text', source: source.slice(begin, end < 0 ? source.length : end)};
    }
    const unseen = (end) => ({kind: 'unseen', source: source.slice(begin, end)});
    if (source.startsWith('<!--', begin)) return unseen(endAfter(source, '-->', begin + 4));
    if (source.startsWith('<![CDATA[', begin)) return unseen(endAfter(source, ']]>', begin + 9));
    if (source.startsWith('<?', begin)) return unseen(endAfter(source, '?>', begin));
    return readTag(source, begin);
  }

  // Tags ("start", "empty", "end"), texts, and what nobody sees, each with its source, in the page's order.
  quill.readPieces = function* (source) {
    for (let at = 0; at < source.length;) {
      const piece = readPiece(source, at);
      yield piece;
      at += piece.source.length;
    }
  };

  // The attributes of a tag, values as they are written: {name, value, begin, end}; the place in the tag's source
  // takes in the white space before.
  quill.attributesOf = function (tag) {
    const attributes = [];
    const source = tag.source;
    for (let at = 1 + tag.name.length; at < source.length;) {
      const nameAt = endOf(SPACE, source, at);
      const nameEnd = endOf(NAME, source, nameAt);
      if (nameEnd === nameAt) break;
      const quoteAt = endOf(SPACE, source, endOf(SPACE, source, nameEnd) + 1);
      const valueEnd = source.indexOf(source[quoteAt], quoteAt + 1);
      if (valueEnd < 0) break;
      const name = source.slice(nameAt, nameEnd);
      attributes.push({name, value: source.slice(quoteAt + 1, valueEnd), begin: at, end: valueEnd + 1});
      at = valueEnd + 1;
    }
    return attributes;
  };
})();
