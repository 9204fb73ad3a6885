// The page as its window sees it: shows a page's content, tells of changes, selects for demonstrations.
(function (quill) {
  'use strict';

  let host = null;
  let key = 0;
  let dirty = false;
  let edits = 0;  // changes of this page since it was shown

  quill.titleText = () => quill.title().textContent.replace(/\s+/g, ' ').trim();
  quill.content = () => quill.body().innerHTML;
  quill.visibleText = () => quill.body().innerText;

  quill.edits = () => edits;

  // The page as it is, and the number of its changes.
  quill.allChanges = function () {
    dirty = false;
    return {key, title: quill.titleText(), body: quill.content(), edits};
  };

  // What has changed since it was taken last; empty when nothing has.
  quill.takeChanges = () => (dirty ? quill.allChanges() : {});

  // To be called after a change.
  quill.changed = function () {
    dirty = true;
    ++edits;
    host.Changed();
  };

  quill.fill = function (title, body) {
    quill.title().textContent = title;
    quill.body().replaceChildren(...quill.cleanNodes(body));
    if (!quill.body().firstElementChild) quill.body().innerHTML = '<p><br></p>';
    quill.forgetHistory();
  };

  // Shows another page, under a key that its changes will be told with. Returns `takeChanges` of the old.
  quill.show = function (newKey, title, body) {
    const changes = quill.takeChanges();
    key = newKey;
    edits = 0;
    quill.fill(title, body);
    quill.focusBody();
    window.scrollTo(0, 0);
    return changes;
  };

  quill.focusBody = function () {
    quill.body().focus({preventScroll: true});
    quill.caretAt(quill.paragraphOf(quill.body().querySelector('p,li,td,h1,h2,h3,pre') || quill.body()), 0);
  };

  // Caret to the title, its text selected.
  quill.focusTitle = function () {
    quill.title().focus();
    const range = document.createRange();
    range.selectNodeContents(quill.title());
    quill.select(range);
  };

  // Gives the keyboard back to the part that holds the selection.
  quill.takeFocus = function () {
    const range = quill.selectedRange();
    if (!range) return quill.focusBody();
    const root = quill.isInTitle(range) ? quill.title() : quill.body();
    if (document.activeElement === root) return;
    root.focus({preventScroll: true});
    quill.select(range);
  };

  quill.setTheme = function (dark) { document.documentElement.dataset.theme = dark ? 'dark' : 'light'; };

  // --- selecting, for demonstrations and trials ------------------------------------------------------

  const reveal = function (range) {
    quill.body().focus({preventScroll: true});
    quill.select(range);
    quill.element(range.startContainer).scrollIntoView({block: 'nearest'});
    return true;
  };

  // Finds a text in the body; a line feed stands for the end of a paragraph.
  const findText = function (text) {
    const walker = document.createTreeWalker(quill.body(), NodeFilter.SHOW_TEXT);
    const pieces = [];
    let whole = '';
    while (walker.nextNode()) {
      const node = walker.currentNode;
      const before = pieces[pieces.length - 1];
      if (before && quill.paragraphOf(before.node) !== quill.paragraphOf(node)) whole += '\n';
      pieces.push({node, from: whole.length});
      whole += node.data;
    }
    const at = whole.indexOf(text);
    if (text === '' || at < 0) return null;
    const point = function (offset) {
      const piece = pieces.filter((candidate) => candidate.from <= offset).pop();
      return {node: piece.node, offset: Math.min(offset - piece.from, piece.node.data.length)};
    };
    const range = document.createRange();
    const first = point(at);
    range.setStart(first.node, first.offset);
    const ownEnd = text.endsWith('\n') ? 0 : 1;
    const last = point(at + text.length - ownEnd);
    range.setEnd(last.node, last.offset + ownEnd);
    return range;
  };

  quill.selectText = function (text) {
    const range = findText(text);
    return range !== null && reveal(range);
  };
  quill.selectBlock = function (selector) {
    const block = quill.body().querySelector(selector);
    if (!block) return false;
    const range = document.createRange();
    range.selectNode(block);
    return reveal(range);
  };
  quill.selectPage = function () {
    const range = document.createRange();
    range.selectNodeContents(quill.body());
    return reveal(range);
  };
  quill.caretAtEnd = function () {
    quill.body().focus({preventScroll: true});
    const last = quill.paragraphOf(quill.body().lastElementChild || quill.body());
    quill.caretAt(last, last.childNodes.length);
    return true;
  };

  // --- events ------------------------------------------------------------------------------------------

  const isMac = navigator.platform.startsWith('Mac');
  quill.isCommand = (event) => (isMac ? event.metaKey : event.ctrlKey) && !event.altKey;

  const onKey = function (event) {
    const key = event.key.toLowerCase();
    if (quill.isCommand(event) && key === 'z') {
      event.shiftKey ? quill.redo() : quill.undo();
    } else if (quill.isCommand(event) && key === 'y') {
      quill.redo();
    } else if (event.key === 'Enter' && quill.title().contains(event.target)) {
      quill.focusBody();
    } else if ((event.key === 'Delete' || event.key === 'Backspace') && !quill.isCommand(event)) {
      const range = quill.selectedRange();
      if (!range || range.collapsed) return;
      quill.pressDelete();
    } else {
      return;
    }
    event.preventDefault();
  };

  const start = function () {
    document.execCommand('defaultParagraphSeparator', false, 'p');
    document.execCommand('styleWithCSS', false, true);
    document.addEventListener('keydown', onKey, true);
    document.addEventListener('beforeinput', (event) => {
      const ours = event.inputType.startsWith('history') || event.inputType === 'insertFromDrop';
      if (ours) event.preventDefault();
      else quill.rememberTyping(event.inputType, event.timeStamp);
    });
    document.addEventListener('input', quill.changed);
    for (const kind of ['copy', 'cut', 'paste']) {
      document.addEventListener(kind, (event) => {
        event.preventDefault();
        host.Clipboard(kind);
      });
    }
    document.addEventListener('drop', (event) => event.preventDefault());
    quill.watchLinks(host);
    document.addEventListener('click', (event) => {
      const box = event.target.closest && event.target.closest('p[data-tag^="to-do"]');
      if (box && event.target === box && event.offsetX < 0) quill.toggleDone(box);
    });
  };

  quill.toggleDone = function (paragraph) {
    quill.remember();
    paragraph.dataset.tag = paragraph.dataset.tag === 'to-do' ? 'to-do:completed' : 'to-do';
    quill.changed();
  };

  new QWebChannel(qt.webChannelTransport, function (channel) {
    host = channel.objects.host;
    start();
    host.Ready();
  });
})(window.quill = window.quill || {});
