// What is selected on the page, and how far a selection reaches once whole cells and paragraphs count.
(function (quill) {
  'use strict';

  const PARAGRAPHS = 'p,h1,h2,h3,h4,h5,h6,pre,li,td,th';
  const BLOCKS = PARAGRAPHS + ',table,tbody,tr,ul,ol,div,blockquote,hr';

  quill.body = () => document.getElementById('body');
  quill.title = () => document.getElementById('title');
  quill.element = (node) => (node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement);
  quill.isBlock = (node) => node.nodeType === Node.ELEMENT_NODE && node.matches(BLOCKS);
  quill.isList = (node) => node.nodeType === Node.ELEMENT_NODE && node.matches('ul,ol');
  quill.hasBlocks = (fragment) => fragment.querySelector(BLOCKS) !== null;

  // The paragraph, list item or cell that holds the text at a node; the body when it is none of them.
  quill.paragraphOf = function (node) {
    const found = quill.element(node).closest(PARAGRAPHS);
    return found && quill.body().contains(found) ? found : quill.body();
  };

  // The selection's range when it lies in the title or in the body as a whole; otherwise nothing.
  quill.selectedRange = function () {
    const selection = window.getSelection();
    if (selection.rangeCount === 0) return null;
    const range = selection.getRangeAt(0);
    for (const root of [quill.title(), quill.body()]) {
      if (root.contains(range.commonAncestorContainer)) return range;
    }
    return null;
  };

  quill.isInTitle = (range) => quill.title().contains(range.commonAncestorContainer);

  quill.select = function (range) {
    const selection = window.getSelection();
    selection.removeAllRanges();
    selection.addRange(range);
  };

  quill.caretAt = function (node, offset) {
    const range = document.createRange();
    range.setStart(node, offset);
    range.collapse(true);
    quill.select(range);
  };

  quill.isEmpty = (node) => node.textContent.trim() === '' && !node.textContent.includes('\u00a0') &&
      !node.querySelector('img,table,hr,input');

  const nothingBetween = function (startNode, startOffset, endNode, endOffset) {
    const range = document.createRange();
    range.setStart(startNode, startOffset);
    range.setEnd(endNode, endOffset);
    const contents = range.cloneContents();
    return contents.textContent === '' && !contents.querySelector('img,table,hr');
  };
  const atStartOf = (element, node, offset) =>
      element.contains(node) && nothingBetween(element, 0, node, offset);
  const atEndOf = (element, node, offset) =>
      element.contains(node) && nothingBetween(node, offset, element, element.childNodes.length);

  // A triple click ends at the start of the next paragraph: nothing of that one is meant.
  const dropUntouchedEnd = function (range) {
    const last = quill.paragraphOf(range.endContainer);
    if (last === quill.body() || last.contains(range.startContainer)) return;
    if (!atStartOf(last, range.endContainer, range.endOffset)) return;
    let edge = last;
    while (edge.parentElement !== quill.body() && !edge.previousElementSibling &&
           !edge.parentElement.contains(range.startContainer)) {
      edge = edge.parentElement;
    }
    range.setEndBefore(edge);
  };

  // The outermost element of a kind that holds `node` and not `other`.
  const outermostWithout = function (kind, node, other) {
    let found = null;
    for (let at = quill.element(node).closest(kind); at && quill.body().contains(at) && !at.contains(other);
         at = at.parentElement.closest(kind)) {
      found = at;
    }
    return found;
  };

  // A selection that crosses the edge of a table or a list, or of a cell, takes the whole table or list.
  const takeWhole = function (range) {
    for (const [kind, whole] of [['td,th', 'table'], ['ul,ol', 'ul,ol']]) {
      const first = outermostWithout(kind, range.startContainer, range.endContainer);
      const last = outermostWithout(kind, range.endContainer, range.startContainer);
      if (first) range.setStartBefore(first.closest(whole));
      if (last) range.setEndAfter(last.closest(whole));
    }
    const within = quill.element(range.commonAncestorContainer);
    if (within.matches('table,tbody,thead,tfoot,tr')) range.selectNode(within.closest('table'));
  };

  // Where an edge of the range is also the edge of a paragraph (list, …), the range steps out of it.
  const stepOut = function (range) {
    const common = () => quill.element(range.commonAncestorContainer);
    for (let at = quill.element(range.startContainer); at !== common() && quill.body().contains(at) &&
         at !== quill.body() && atStartOf(at, range.startContainer, range.startOffset);
         at = quill.element(range.startContainer)) {
      range.setStartBefore(at);
    }
    for (let at = quill.element(range.endContainer); at !== common() && quill.body().contains(at) &&
         at !== quill.body() && atEndOf(at, range.endContainer, range.endOffset);
         at = quill.element(range.endContainer)) {
      range.setEndAfter(at);
    }
    const list = common();
    if (quill.isList(list) && quill.body().contains(list) &&
        atStartOf(list, range.startContainer, range.startOffset) &&
        atEndOf(list, range.endContainer, range.endOffset)) {
      range.selectNode(list);
    }
  };

  // The range that a command on this selection really works on.
  quill.wholeRange = function (range) {
    const whole = range.cloneRange();
    if (whole.collapsed || quill.isInTitle(whole)) return whole;
    dropUntouchedEnd(whole);
    takeWhole(whole);
    const first = quill.paragraphOf(whole.startContainer);
    const inOneParagraph = first === quill.paragraphOf(whole.endContainer) &&
        !quill.hasBlocks(whole.cloneContents());
    if (!inOneParagraph) stepOut(whole);
    return whole;
  };
})(window.quill = window.quill || {});
