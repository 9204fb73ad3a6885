// Changes of the page: undo, deleting a selection, inserting content. The page keeps its own history,
// because the engine's own forgets what scripts change.
(function (quill) {
  'use strict';

  const LONGEST_HISTORY = 100;
  const TYPING_PAUSE = 1000;
  let past = [];
  let future = [];
  let lastTyping = {kind: '', time: -Infinity};

  const roots = () => [quill.title(), quill.body()];

  const pathOf = function (node, offset) {
    const path = [offset];
    for (; !roots().includes(node); node = node.parentNode) {
      path.unshift([...node.parentNode.childNodes].indexOf(node));
    }
    path.unshift(roots().indexOf(node));
    return path;
  };
  const atPath = function (path) {
    let node = roots()[path[0]];
    for (const index of path.slice(1, -1)) node = node.childNodes[index];
    return [node, path[path.length - 1]];
  };

  const state = function () {
    const range = quill.selectedRange();
    return {
      roots: roots().map((root) => root.cloneNode(true)),
      selection: range && [pathOf(range.startContainer, range.startOffset),
                           pathOf(range.endContainer, range.endOffset)],
    };
  };
  const restore = function (kept) {
    roots().forEach((root, i) => root.replaceChildren(...kept.roots[i].cloneNode(true).childNodes));
    if (!kept.selection) return;
    const range = document.createRange();
    range.setStart(...atPath(kept.selection[0]));
    range.setEnd(...atPath(kept.selection[1]));
    quill.select(range);
  };

  // To be called before a change.
  quill.remember = function () {
    past.push(state());
    if (past.length > LONGEST_HISTORY) past.shift();
    future = [];
    lastTyping.time = -Infinity;
  };
  const step = function (from, to) {
    if (from.length === 0) return false;
    to.push(state());
    restore(from.pop());
    lastTyping.time = -Infinity;
    quill.changed();
    return true;
  };
  quill.undo = () => step(past, future);
  quill.redo = () => step(future, past);
  quill.forgetHistory = function () { past = []; future = []; };

  // Typing is undone in runs: a pause or another kind of change begins a new one.
  quill.rememberTyping = function (kind, time) {
    const sameRun = lastTyping.kind === kind && time - lastTyping.time < TYPING_PAUSE;
    if (!sameRun) quill.remember();
    lastTyping = {kind, time};
  };

  const newParagraph = function (name) {
    const paragraph = document.createElement(name);
    paragraph.append(document.createElement('br'));
    return paragraph;
  };
  const dropFiller = function (node) {
    if (node.childNodes.length === 1 && node.firstChild.nodeName === 'BR') node.firstChild.remove();
  };
  const fill = function (node) {
    if (node.nodeType === Node.ELEMENT_NODE && node.childNodes.length === 0) {
      node.append(document.createElement('br'));
    }
  };
  const removeWithEmptyParents = function (node) {
    for (let parent = node.parentElement; parent; parent = node.parentElement) {
      node.remove();
      if (parent === quill.body() || parent.matches('td,th') || !quill.isEmpty(parent) ||
          parent.querySelector('li,p')) {
        return;
      }
      node = parent;
    }
  };

  // The selected blocks go; what is left of the first and the last one becomes one paragraph. When
  // nothing is left of either, an empty paragraph (or list item) keeps their place.
  const deleteBlocks = function (range) {
    const outside = (paragraph) => paragraph !== quill.body() && !paragraph.matches('td,th');
    const first = quill.paragraphOf(range.startContainer);
    const last = quill.paragraphOf(range.endContainer);
    const keepsFirst = outside(first) && first !== last;
    const keepsLast = outside(last) && first !== last;
    range.deleteContents();
    if (keepsFirst && first.isConnected) {
      const end = first.childNodes.length;
      quill.caretAt(first, end);
      if (keepsLast && last.isConnected) {
        first.append(...last.childNodes);
        removeWithEmptyParents(last);
      }
    } else if (keepsLast && last.isConnected) {
      quill.caretAt(last, 0);
    } else {
      const place = newParagraph(quill.isList(range.startContainer) ? 'li' : 'p');
      range.insertNode(place);
      quill.caretAt(place, 0);
    }
  };

  quill.deleteRange = function (selected) {
    const range = quill.wholeRange(selected);
    if (!quill.isInTitle(range) && quill.hasBlocks(range.cloneContents())) {
      deleteBlocks(range);
      return;
    }
    const holder = quill.isInTitle(range) ? quill.title() : quill.paragraphOf(range.startContainer);
    range.deleteContents();
    for (let at = quill.element(range.startContainer); at !== holder && holder.contains(at) &&
         at.textContent === '' && !at.querySelector('img');) {
      range.setStartBefore(at);
      at.remove();
      at = quill.element(range.startContainer);
    }
    quill.select(range);
    if (quill.isEmpty(holder) && !holder.querySelector('br')) fill(holder);
  };

  // Takes what stands behind the caret out of `paragraph`, as a paragraph of the same kind.
  const splitAtCaret = function (paragraph, range) {
    const rest = document.createRange();
    rest.setStart(range.startContainer, range.startOffset);
    rest.setEnd(paragraph, paragraph.childNodes.length);
    const right = paragraph.cloneNode(false);
    right.append(rest.extractContents());
    return right;
  };

  // Puts blocks at the caret. Where the caret splits a paragraph, the first and the last of them join
  // its halves, so that what was cut out there fits in again.
  const insertBlocks = function (blocks, range) {
    const here = quill.paragraphOf(range.startContainer);
    if (here === quill.body() || here.matches('td,th')) {
      for (const block of blocks.slice().reverse()) range.insertNode(block);
      quill.caretAt(...endOf(blocks[blocks.length - 1]));
      return;
    }
    const joins = (block) => block.matches(here.matches('li') ? 'li' : 'p,h1,h2,h3,h4,h5,h6,pre');
    const right = splitAtCaret(here, range);
    const leftEmpty = quill.isEmpty(here);
    const rest = blocks.slice();
    let end = [here, here.childNodes.length];
    if (!leftEmpty && joins(rest[0])) {
      const joined = rest.shift();
      dropFiller(joined);
      here.append(...joined.childNodes);
      end = [here, here.childNodes.length];
    }
    here.after(...rest);
    const last = rest.length > 0 ? rest[rest.length - 1] : here;
    if (last !== here) end = endOf(last);
    if (!quill.isEmpty(right)) {
      if (last === here || joins(last)) {
        end = [last, last.childNodes.length];
        last.append(...right.childNodes);
      } else {
        last.after(right);
      }
    }
    if (leftEmpty && rest.length > 0) here.remove(); else fill(here);
    quill.caretAt(...end);
  };

  const endOf = function (block) {
    const paragraphs = block.querySelectorAll('p,li,td,h1,h2,h3,h4,h5,h6,pre');
    const last = paragraphs.length > 0 ? paragraphs[paragraphs.length - 1] : block;
    const filler = last.lastChild && last.lastChild.nodeName === 'BR' && last.childNodes.length === 1;
    return [last, filler ? 0 : last.childNodes.length];
  };

  const insertInline = function (nodes, range) {
    const here = quill.paragraphOf(range.startContainer);
    if (here === quill.body() && !quill.isInTitle(range)) {
      const paragraph = document.createElement('p');
      paragraph.append(...nodes);
      insertBlocks([paragraph], range);
      return;
    }
    const filled = quill.isInTitle(range) ? quill.title() : here;
    if (filled.childNodes.length === 1 && filled.firstChild.nodeName === 'BR') {
      range.setStart(filled, 0);
      range.collapse(true);
      dropFiller(filled);
    }
    for (const node of nodes.slice().reverse()) range.insertNode(node);
    range.setStartAfter(nodes[nodes.length - 1]);
    range.collapse(true);
    quill.select(range);
  };

  // Gives runs of text between blocks a paragraph of their own.
  const asBlocks = function (nodes) {
    const blocks = [];
    let run = null;
    for (const node of nodes) {
      if (quill.isBlock(node)) {
        blocks.push(node);
        run = null;
      } else if (run || node.nodeType !== Node.TEXT_NODE || node.data.trim() !== '') {
        if (!run) blocks.push(run = document.createElement('p'));
        run.append(node);
      }
    }
    blocks.forEach((block) => { if (block.matches('p,li')) fill(block); });
    return blocks;
  };

  // Inside a list, lists give their items and paragraphs become items.
  const asItems = (blocks) => blocks.flatMap((block) => {
    if (quill.isList(block)) return [...block.children];
    const item = document.createElement('li');
    item.append(...(block.matches('p') ? block.childNodes : [block]));
    return [item];
  });

  // Puts clean nodes in place of the selection. One step to undo.
  quill.insertNodes = function (nodes) {
    let range = quill.selectedRange();
    if (!range || nodes.length === 0) return false;
    if (!range.collapsed) quill.deleteRange(range);
    range = quill.selectedRange();
    if (quill.isInTitle(range)) {
      const text = nodes.map((node) => node.textContent).join(' ').replace(/\s+/g, ' ').trim();
      insertInline([document.createTextNode(text)], range);
    } else if (nodes.some(quill.isBlock)) {
      const blocks = asBlocks(nodes);
      const inList = quill.paragraphOf(range.startContainer).matches('li');
      insertBlocks(inList ? asItems(blocks) : blocks, range);
    } else {
      insertInline(nodes, range);
    }
    if (!quill.body().firstChild) quill.body().append(newParagraph('p'));
    return true;
  };

  // Delete and Backspace on a selection; without one the character before the caret.
  quill.pressDelete = function () {
    const range = quill.selectedRange();
    if (!range) return false;
    if (range.collapsed) {
      document.execCommand('delete');
      return true;
    }
    quill.remember();
    quill.deleteRange(range);
    quill.changed();
    return true;
  };

  quill.type = (text) => document.execCommand('insertText', false, text);
})(window.quill = window.quill || {});
