// What a copy puts on the clipboard: the selection in the form of OneNote's own application. CR LF line
// ends, bare attribute values where they are words or numbers, single-quoted styles, open br and img, rows
// that are direct children of their table, and a fragment between two comment marks.
(function (quill) {
  'use strict';

  const NL = '\r\n';
  const FONT = 'font-family:Calibri;font-size:11.0pt';
  const HEAD = [
    '<html xmlns:o="urn:schemas-microsoft-com:office:office"', 'xmlns="http://www.w3.org/TR/REC-html40">', '',
    '<head>', '<meta http-equiv=Content-Type content="text/html; charset=utf-8">',
    '<meta name=ProgId content=OneNote.File>',
    '<meta name=Generator content="Quill Menu practice notebook">', '</head>', '',
    "<body lang=en-US style='" + FONT + "'>", '<!--StartFragment-->'].join(NL);
  const TAIL = ['<!--EndFragment-->', '</body>', '', '</html>', ''].join(NL);

  const STYLES = {
    p: 'margin:0in;' + FONT,
    table: 'direction:ltr;' + NL + ' border-collapse:collapse;border-style:solid;' +
        'border-color:#A3A3A3;border-width:1pt',
    td: 'border-style:solid;border-color:#A3A3A3;border-width:1pt;' + NL +
        '  vertical-align:top;padding:2.0pt 3.0pt 2.0pt 3.0pt',
    ul: 'margin-left:.375in;direction:ltr;unicode-bidi:embed;' + NL + ' margin-top:0in;margin-bottom:0in',
    li: 'margin-top:0;margin-bottom:0;vertical-align:middle',
  };
  STYLES.th = STYLES.td;
  STYLES.ol = STYLES.ul;

  // Elements that an editor makes and OneNote does not have, as the style that means the same.
  const AS_STYLE = {
    b: 'font-weight:bold', strong: 'font-weight:bold', i: 'font-style:italic', em: 'font-style:italic',
    u: 'text-decoration:underline', s: 'text-decoration:line-through', strike: 'text-decoration:line-through',
    code: 'font-family:Consolas', sup: 'vertical-align:super', sub: 'vertical-align:sub',
  };

  const attribute = (text) => text.replace(/&/g, '&amp;').replace(/"/g, '&quot;').replace(/</g, '&lt;')
      .replace(/>/g, '&gt;').replace(/\n/g, '&#10;').replace(/\u00a0/g, '&nbsp;');
  const styleOf = (text) => " style='" +
      text.replace(/&/g, '&amp;').replace(/'/g, '"').replace(/</g, '&lt;') + "'";

  const textOf = function (node) {
    const escaped = node.data.replace(/[\u0000-\u0008\u000b\u000c\u000e-\u001f\ufffe\uffff]/g, '')
        .replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;')
        .replace(/\u00a0/g, '&nbsp;').replace(/\r?\n/g, NL);
    if (node.parentElement && node.parentElement.closest('[style*="mso-spacerun"]')) return escaped;
    return escaped.replace(/(?:&nbsp;| ){2,}/g, (run) => "<span style='mso-spacerun:yes'>" + run + '</span>');
  };

  const size = function (node) {
    let text = '';
    for (const name of ['width', 'height']) {
      const pixels = parseInt(node.getAttribute(name) || node.style[name], 10);
      if (pixels > 0) text += ' ' + name + '=' + pixels;
    }
    return text;
  };

  const writers = {
    br: () => '<br>',
    hr: (node, inner, style) => '<p' + (style || styleOf(STYLES.p)) + '>&nbsp;</p>' + NL,
    img: (node) => '<img' + size(node) + ' src="' + attribute(node.getAttribute('src') || '') + '" alt="' +
        attribute(node.alt) + '">',
    a: (node, inner) => '<a href="' + attribute(node.getAttribute('href') || '') + '">' + inner + '</a>',
    span: (node, inner, style) => (style ? '<span' + style + '>' + inner + '</span>' : inner),
    table: (node, inner, style) => "<div style='direction:ltr'>" + NL + NL +
        '<table border=1 cellpadding=0 cellspacing=0 valign=top' + style + ' title="' +
        attribute(node.title) + '" summary="">' + NL + inner + '</table>' + NL + NL + '</div>' + NL + NL,
    tr: (node, inner) => ' <tr>' + NL + inner + ' </tr>' + NL,
    td: (node, inner, style) => '  <td' + style + '>' + NL + '  ' + inner.trimEnd() + NL + '  </td>' + NL,
    ul: (node, inner, style) => '<ul type=' + (node.getAttribute('type') || 'disc') + style + '>' + NL +
        inner + '</ul>' + NL,
    ol: (node, inner, style) => '<ol type=' + (node.getAttribute('type') || '1') + style + '>' + NL + inner +
        '</ol>' + NL,
    li: (node, inner, style) => ' <li' +
        (node.parentElement && node.parentElement.querySelector('li') === node ? ' value=1' : '') + style +
        '>' + inner.trim() + '</li>' + NL,
  };
  writers.th = writers.td;

  const paragraph = function (node, inner, style) {
    const name = node.localName;
    const tag = node.dataset.tag ? ' data-tag="' + attribute(node.dataset.tag) + '"' : '';
    const shown = quill.isEmpty(node) ? '&nbsp;' : inner;
    return '<' + name + tag + style + '>' + shown + '</' + name + '>' + NL + NL;
  };
  for (const name of ['p', 'h1', 'h2', 'h3', 'h4', 'h5', 'h6', 'pre']) writers[name] = paragraph;

  // Blanks between blocks are layout of the page's file, not content.
  const isLayout = (node) => node.nodeType === Node.TEXT_NODE && /^[ \t\r\n]*$/.test(node.data) &&
      node.parentNode && [...node.parentNode.childNodes].some(quill.isBlock);

  // A cell's or an item's own text stands in a paragraph, a list item's in a span.
  const contents = function (node) {
    const parts = [...node.childNodes].filter((child) => !isLayout(child));
    let inner = parts.map(write).join('');
    const name = node.localName;
    const loose = parts.length > 0 && !parts.some(quill.isBlock);
    if (name === 'td' || name === 'th') {
      if (parts.length === 0 || loose) {
        inner = '<p' + styleOf(STYLES.p) + '>' + (quill.isEmpty(node) ? '&nbsp;' : inner) + '</p>';
      }
    } else if (name === 'li' && loose && !(parts.length === 1 && parts[0].localName === 'span')) {
      inner = '<span' + styleOf(FONT) + '>' + (quill.isEmpty(node) ? '&nbsp;' : inner) + '</span>';
    }
    return inner;
  };

  const write = function (node) {
    if (node.nodeType === Node.TEXT_NODE) return isLayout(node) ? '' : textOf(node);
    if (node.nodeType !== Node.ELEMENT_NODE) return '';
    const name = node.localName;
    const inner = contents(node);
    if (AS_STYLE[name]) return '<span' + styleOf(AS_STYLE[name]) + '>' + inner + '</span>';
    const writer = writers[name];
    if (!writer) return inner;
    const style = node.getAttribute('style') || STYLES[name] || '';
    return writer(node, inner, style ? styleOf(style) : '');
  };

  // The nodes of a range with what stands around them and matters: text styles, the list of an item.
  const nodesOf = function (range) {
    let nodes = range.cloneContents();
    const inline = !quill.hasBlocks(nodes);
    for (let at = quill.element(range.commonAncestorContainer); at && at !== quill.body();
         at = at.parentElement) {
      if (inline ? quill.isBlock(at) : !quill.isList(at)) break;
      const around = at.cloneNode(false);
      around.append(nodes);
      nodes = document.createDocumentFragment();
      nodes.append(around);
      if (!inline) break;
    }
    return {nodes, inline};
  };

  quill.fragmentOf = function (range) {
    const {nodes, inline} = nodesOf(range);
    const holder = document.createElement('div');
    holder.append(nodes);
    const html = contents(holder);
    return inline ? html : NL + NL + html.replace(/(?:\r\n)+$/, '') + NL + NL;
  };

  quill.selectionFragment = function () {
    const selected = quill.selectedRange();
    return selected && !selected.collapsed ? quill.fragmentOf(quill.wholeRange(selected)) : '';
  };

  // Widens the selection to what is copied, and returns it: whole document and plain text. Empty when
  // nothing is selected.
  quill.copy = function () {
    const selected = quill.selectedRange();
    if (!selected || selected.collapsed) return {};
    const range = quill.wholeRange(selected);
    quill.select(range);
    const text = window.getSelection().toString();
    return {html: HEAD + quill.fragmentOf(range) + TAIL, text};
  };
})(window.quill = window.quill || {});
