// The page on the screen, made element by element from what its source says. Only known elements and attributes are
// made: nothing that runs, loads, or leads away can come into being. What stands on the service, such as a picture, is
// shown as a box with its name.
(function () {
  'use strict';

  const words = (text) => new Set(text.split(' '));
  const ELEMENTS = words(
    'a abbr b big blockquote br caption center cite code col colgroup dd del div dl dt em figcaption figure font h1 h2 ' +
    'h3 h4 h5 h6 hr i ins kbd li mark ol p pre q s samp small span strike strong sub sup table tbody td tfoot th thead ' +
    'tr tt u ul var');
  const ATTRIBUTES = words(
    'align bgcolor border cellpadding cellspacing color colspan data-tag dir face height id lang rowspan size start ' +
    'style title type valign value width');
  const CHILDLESS = words('br col hr');
  const BOXED = words('audio embed iframe img object video');

  function attributeMap(tag) {
    return new Map(quill.attributesOf(tag).map(({name, value}) => [name.toLowerCase(), quill.decode(value)]));
  }

  function newElement(name, attributes) {
    const isKnown = ELEMENTS.has(name);
    const element = document.createElement(isKnown ? name : quill.breaksText(name) ? 'div' : 'span');
    for (const [attribute, value] of attributes) {
      if (ATTRIBUTES.has(attribute)) element.setAttribute(attribute, value);
    }
    if (name === 'a' && attributes.has('href')) {
      element.className = 'link';
      element.title = attributes.get('href');
    }
    return element;
  }

  // What a box is called: by its author, by its file, by its host, or by what it is.
  function nameOfBox(name, attributes, texts) {
    const named = attributes.get('alt') || attributes.get('data-attachment') || attributes.get('data-original-src');
    return named?.trim() || (name === 'img' ? texts.picture : texts.object);
  }

  function newBox(name, attributes, texts) {
    const box = newElement('span', attributes);
    const words = nameOfBox(name, attributes, texts);
    box.setAttribute('role', 'img');
    box.setAttribute('aria-label', words);
    box.title = words;
    const source = attributes.get('src') ?? '';
    if (name === 'img' && /^data:image\//i.test(source)) {
      const picture = document.createElement('img');
      for (const {name: attribute, value} of box.attributes) picture.setAttribute(attribute, value);
      picture.src = source;
      return picture;
    }
    box.classList.add('object');
    box.textContent = words;
    for (const side of ['width', 'height']) {
      const length = parseFloat(attributes.get(side));
      if (length > 0) box.style[side] = `${length}px`;
    }
    return box;
  }

  // Fills an element with a page, from its first tag to its last. What stands in an object is not shown.
  quill.ShownPage = class {
    constructor(root, texts) {
      this.texts = texts;
      this.open = [root];  // null for what is not shown
    }

    enter(name, tag) {
      const parent = this.open.at(-1);
      let inside = null;
      if (parent && !quill.hidesText(name)) {
        const element = newElement(name, attributeMap(tag));
        parent.append(element);
        inside = CHILDLESS.has(name) ? parent : element;
      } else if (parent && BOXED.has(name)) {
        parent.append(newBox(name, attributeMap(tag), this.texts));
      }
      if (tag.kind === 'start') this.open.push(inside);
    }

    leave() {
      if (this.open.length > 1) this.open.pop();
    }

    // A piece of text; `piece.nodes` are what stands for it in the page, `piece.drawn` is the source that they show.
    add(piece) {
      piece.nodes = [];
      const parent = this.open.at(-1);
      if (!parent) return;
      piece.nodes = [document.createTextNode(quill.decode(piece.source))];
      piece.drawn = piece.source;
      parent.append(piece.nodes[0]);
    }
  };

  // Shows a block as its source is now, with marks around the first `most` of its matches. Gives the marks of each.
  quill.drawBlock = function (block, length, most) {
    const marks = [];
    const cuts = new Map(block.pieces.map((piece) => [piece, []]));
    const text = most > 0 && block.starts.length > 0 ? block.text() : null;
    block.starts.slice(0, most).forEach((start, match) => {
      marks.push([]);
      for (const range of text.rangesOf(start, start + length)) cuts.get(range.piece).push({...range, match});
    });
    for (const [piece, list] of cuts) drawPiece(piece, list, marks);
    return marks;
  };

  function drawPiece(piece, cuts, marks) {
    if (piece.nodes.length === 0) return;
    const isAsDrawn = piece.drawn === piece.source && piece.nodes.length === 1 && piece.nodes[0] instanceof Text;
    if (cuts.length === 0 && isAsDrawn) return;
    piece.drawn = piece.source;
    const nodes = [];
    const addText = (begin, end) =>
      nodes.push(document.createTextNode(quill.decode(piece.source.slice(begin, end))));
    let at = 0;
    for (const {begin, end, match} of cuts) {
      if (begin > at) addText(at, begin);
      const mark = document.createElement('quill-match');
      mark.textContent = quill.decode(piece.source.slice(begin, end));
      marks[match].push(mark);
      nodes.push(mark);
      at = end;
    }
    if (at < piece.source.length || nodes.length === 0) addText(at, piece.source.length);
    piece.nodes[0].before(...nodes);
    for (const old of piece.nodes) old.remove();
    piece.nodes = nodes;
  }
})();
