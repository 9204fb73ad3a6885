// The page's content anew when it has changed on disk, without moving the reader; and the way to a paragraph
// that a link leads to.
(function (quill) {
  'use strict';

  const PARAGRAPHS = 'p,h1,h2,h3,h4,h5,h6,pre,li,td,th';
  const SHOWN_FOR = 1800;
  const paragraphs = () => [...quill.body().querySelectorAll(PARAGRAPHS)];

  // A point of the selection as a reader would name it: so many characters into that paragraph.
  const placeOf = function (node, offset) {
    const inTitle = quill.title().contains(node);
    const holder = inTitle ? quill.title() : quill.paragraphOf(node);
    const before = document.createRange();
    before.setStart(holder, 0);
    before.setEnd(node, offset);
    return {inTitle, index: paragraphs().indexOf(holder), text: holder.textContent,
            offset: before.toString().length};
  };

  // The paragraph with the same text that is nearest to where it was; otherwise the one that stands there now.
  const holderOf = function (place) {
    if (place.inTitle) return quill.title();
    const all = paragraphs();
    const far = (paragraph) => Math.abs(all.indexOf(paragraph) - place.index);
    const same = all.filter((paragraph) => paragraph.textContent === place.text);
    if (place.index < 0 || all.length === 0) return quill.body();
    if (same.length > 0) return same.reduce((best, other) => (far(other) < far(best) ? other : best));
    return all[Math.min(place.index, all.length - 1)];
  };

  const pointAt = function (place) {
    const holder = holderOf(place);
    const walker = document.createTreeWalker(holder, NodeFilter.SHOW_TEXT);
    let rest = place.offset;
    let last = null;
    while (walker.nextNode()) {
      last = walker.currentNode;
      if (rest <= last.data.length) return [last, rest];
      rest -= last.data.length;
    }
    return last ? [last, last.data.length] : [holder, 0];
  };

  // Shows the page as it is on disk. `seen` tells up to which of our own changes the program knows; when there
  // are later ones, nothing happens, and they are returned as `takeChanges` would.
  quill.reload = function (seen, title, body) {
    if (quill.edits() !== seen) return quill.allChanges();
    const range = quill.selectedRange();
    const places = range && [placeOf(range.startContainer, range.startOffset),
                             placeOf(range.endContainer, range.endOffset)];
    const scroll = window.scrollY;
    quill.fill(title, body);
    if (places) {
      const kept = document.createRange();
      kept.setStart(...pointAt(places[0]));
      kept.setEnd(...pointAt(places[1]));
      quill.select(kept);
    }
    window.scrollTo(0, scroll);
    return {};
  };

  // Caret to the element, which is outlined for a moment. The element itself is not touched: that would be a
  // change of the page.
  quill.jumpTo = function (selector, index) {
    const found = quill.body().querySelectorAll(selector)[index];
    if (!found) return false;
    quill.body().focus({preventScroll: true});
    const range = document.createRange();
    if (found.matches('img')) range.selectNode(found);
    else range.selectNodeContents(found);
    range.collapse(true);
    quill.select(range);
    found.scrollIntoView({block: found.offsetHeight > window.innerHeight ? 'start' : 'center'});
    const accent = getComputedStyle(document.documentElement).getPropertyValue('--accent').trim();
    const frame = (colour) => ({outline: '2px solid ' + colour, outlineOffset: '3px', borderRadius: '2px'});
    found.animate([{...frame(accent), offset: 0}, {...frame(accent), offset: 0.7}, {...frame('transparent'), offset: 1}],
                  SHOWN_FOR);
    return true;
  };
})(window.quill = window.quill || {});
