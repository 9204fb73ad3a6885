// What elements do to the text around them, and which of them the service replaces: a table outside of any other, a
// list item or a list outside of tables, a paragraph or heading outside of tables and list items, and likewise a div
// within another one. As online/page_targets.h.
(function () {
  'use strict';

  const words = (text) => text.split(' ');
  const BLOCKS = new Set(words(
    'address article aside blockquote body br caption col colgroup dd details div dl dt fieldset figcaption figure ' +
    'footer form h1 h2 h3 h4 h5 h6 header hr html legend li main nav ol p pre section summary table tbody td tfoot ' +
    'th thead tr ul'));
  const OBJECTS = new Set(words(
    'audio canvas embed head iframe img input object script select style svg template textarea title video'));

  // By a name in lower case. Text around an element that breaks it is never read together; an object's own is hidden.
  quill.breaksText = (name) => BLOCKS.has(name) || OBJECTS.has(name);
  quill.hidesText = (name) => OBJECTS.has(name);

  // ASCII letters only: nothing else is a known name.
  quill.lowerName = (name) => name.replace(/[A-Z]/g, (letter) => letter.toLowerCase());

  // Which name a list of changes shows for a text.
  const KINDS = [[/^(td|th)$/, 'cell'], [/^li$/, 'item'], [/^h[1-6]$/, 'heading'], [/^p$/, 'paragraph']];
  function kindOf(name, outer) {
    const found = KINDS.find(([names]) => names.test(name));
    if (!found) return outer;
    return found[1] === 'paragraph' && (outer === 'cell' || outer === 'item') ? outer : found[1];
  }

  function mayReplace(name, level) {
    if (level.inTable) return false;
    if (['table', 'li', 'ol', 'ul'].includes(name)) return true;
    return !level.inItem && (/^(p|h[1-6])$/.test(name) || (name === 'div' && level.inDiv));
  }

  // Follows a page's tags from top to bottom.
  quill.PageTargets = class {
    constructor() {
      this.all = [];  // {id, first, last, blocks}: the numbers of its pieces; in the order in which they begin
      const isIn = {inTable: false, inItem: false, inDiv: false};
      this.open = [{target: null, own: null, isHidden: false, kind: 'text', ...isIn}];
    }

    get current() {
      return this.open.at(-1);
    }

    enter(name, id, pieceNumber) {
      const outer = this.current;
      const level = {...outer, own: null, kind: kindOf(name, outer.kind)};
      level.isHidden = outer.isHidden || quill.hidesText(name);
      if (id && mayReplace(name, outer)) {
        level.own = level.target = {id, first: pieceNumber, last: pieceNumber, blocks: []};
        this.all.push(level.own);
      }
      level.inTable = outer.inTable || name === 'table';
      level.inItem = outer.inItem || (!level.inTable && name === 'li');
      level.inDiv = outer.inDiv || (!level.inTable && name === 'div');
      this.open.push(level);
    }

    leave(pieceNumber) {
      if (this.open.length === 1) return;
      const level = this.open.pop();
      if (level.own) level.own.last = pieceNumber;
    }
  };
})();
