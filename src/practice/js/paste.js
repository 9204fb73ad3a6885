// What comes from the clipboard: cut at the fragment marks, reduced to what a page may hold, inserted.
(function (quill) {
  'use strict';

  const ALLOWED = new Set(('p h1 h2 h3 h4 h5 h6 pre span a img br hr table tbody thead tfoot tr td th ul ol ' +
      'li b i u s strike strong em sub sup code blockquote').split(' '));
  const DROPPED = new Set(('script style iframe frame frameset object embed applet template noscript svg ' +
      'math video audio source track canvas form input button select textarea link meta base title head dialog ' +
      'portal slot').split(' '));
  const ATTRIBUTES = new Set(('style data-tag data-id href src alt width height title summary border cellpadding ' +
      'cellspacing valign type lang rowspan colspan align bgcolor start').split(' '));
  const LINKS = /^(?:https?|onenote|mailto|qvar|file|tel):/i;
  const PICTURES = /^data:image\/(?:png|jpe?g|gif|webp|bmp);/i;
  const KEPT_SOURCES = /^(?:file|https?):/i;
  // A style that loads something or leaves the page's flow; a backslash or a comment may hide either.
  const ACTIVE_STYLE = /\\|\/\*|url\s*\(|image\s*\(|image-set|expression|@|position\s*:/i;

  const keepsAttribute = function (element, name, value) {
    if (!ATTRIBUTES.has(name)) return false;
    // White space and control characters do not keep an address from being understood.
    const address = value.replace(/[\u0000-\u0020]/g, '');
    if (name === 'href') return element.localName === 'a' && LINKS.test(address);
    if (name === 'src') {
      return element.localName === 'img' && (PICTURES.test(address) || KEPT_SOURCES.test(address));
    }
    if (name === 'style') return !ACTIVE_STYLE.test(value);
    return name !== 'data-id' || value !== '_default';
  };

  // A group of paragraphs stays when it has a name of its own.
  const keepsElement = (node) => ALLOWED.has(node.localName) ||
      (node.localName === 'div' && node.hasAttribute('data-id') && node.dataset.id !== '_default');

  const isBetweenBlocks = (node) => node.nodeType === Node.TEXT_NODE && /^[ \t\r\n]*$/.test(node.data) &&
      [node.previousSibling, node.nextSibling].some((beside) => quill.isBlock(beside || node.parentNode)) &&
      !(node.parentNode.matches && node.parentNode.matches('p,h1,h2,h3,h4,h5,h6,pre,span'));

  // Clean copies of a node; none, one, or those of its children when the element itself cannot stay.
  const clean = function (node, pictures) {
    if (node.nodeType === Node.TEXT_NODE) {
      if (isBetweenBlocks(node)) return [];
      const pre = node.parentElement && node.parentElement.closest('pre');
      if (!pre) return [document.createTextNode(node.data.replace(/[ \t\r\n]+/g, ' '))];
      // A line break and the line feed behind it are one end of a line.
      const behindBreak = node.previousSibling && node.previousSibling.nodeName === 'BR';
      const text = behindBreak ? node.data.replace(/^\r?\n/, '') : node.data;
      return text === '' ? [] : [document.createTextNode(text)];
    }
    if (node.nodeType !== Node.ELEMENT_NODE || DROPPED.has(node.localName)) return [];
    const children = [...node.childNodes].flatMap((child) => clean(child, pictures));
    if (!keepsElement(node)) return children;
    const copy = document.createElement(node.localName);
    for (const {name, value} of node.attributes) {
      if (keepsAttribute(node, name, value)) copy.setAttribute(name, value);
    }
    const picture = copy.localName === 'img' && pictures[copy.getAttribute('src')];
    if (picture && PICTURES.test(picture)) copy.setAttribute('src', picture);
    if (copy.localName === 'img') copy.setAttribute('alt', copy.getAttribute('alt') || '');
    copy.append(...children);
    return [copy];
  };

  // The clean nodes of an HTML text. `pictures` gives the data addresses of files.
  quill.cleanNodes = function (html, pictures) {
    const inert = new DOMParser().parseFromString(html, 'text/html');
    return [...inert.body.childNodes].flatMap((node) => clean(node, pictures || {}));
  };

  quill.cutAtMarks = function (html) {
    const start = html.indexOf('<!--StartFragment-->');
    const end = html.indexOf('<!--EndFragment-->');
    return start >= 0 && end > start ? html.slice(start + '<!--StartFragment-->'.length, end) : html;
  };

  const paste = function (nodes) {
    if (!quill.selectedRange() || nodes.length === 0) return false;
    quill.remember();
    const done = quill.insertNodes(nodes);
    quill.changed();
    return done;
  };

  quill.pasteHtml = (html, pictures) => paste(quill.cleanNodes(quill.cutAtMarks(html), pictures));

  quill.pasteText = function (text) {
    const lines = text.replace(/\r\n?/g, '\n').split('\n');
    if (lines.length > 1 && lines[lines.length - 1] === '') lines.pop();
    const line = (content) => document.createTextNode(content.replace(/\t/g, '\u00a0\u00a0\u00a0\u00a0')
        .replace(/ {2}/g, ' \u00a0').replace(/^ /, '\u00a0'));
    if (lines.length === 1) return paste([line(lines[0])]);
    return paste(lines.map((content) => {
      const paragraph = document.createElement('p');
      paragraph.append(content === '' ? document.createElement('br') : line(content));
      return paragraph;
    }));
  };

  quill.pastePicture = function (address) {
    const picture = document.createElement('img');
    picture.src = address;
    picture.alt = '';
    return paste([picture]);
  };
})(window.quill = window.quill || {});
