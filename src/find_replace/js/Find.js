// Find and replace in the page that is shown. The program calls the functions at the end of this file; what they change
// is the source of the page, piece by piece, and the screen follows.
(function () {
  'use strict';

  // A paragraph of megabytes may hold more matches than can be drawn while somebody types.
  const MOST_MARKS = 5000;

  class Editor {
    constructor(source, texts) {
      this.pieces = [];
      this.blocks = [];
      this.targets = new quill.PageTargets();
      this.pattern = new quill.TextPattern('', false);
      this.changed = new Set();  // blocks
      this.count = 0;            // of the matches
      this.marked = new Map();   // blocks that show marks: the marks of each of their matches
      this.current = null;       // {block, match}: the match that the user looks at
      this.place = {number: 0, at: 0};  // where the search goes on: in which block, at which character
      this.read(source, texts);
    }

    read(source, texts) {
      const root = document.createElement('div');
      const shown = new quill.ShownPage(root, texts);
      let together = [];
      const endBlock = () => {
        if (together.length === 0) return;
        const block = new quill.PageBlock(this.blocks.length, together, this.targets.current);
        this.blocks.push(block);
        block.target.blocks.push(block);
        together = [];
      };
      for (const piece of quill.readPieces(source)) {
        const number = this.pieces.length;
        this.pieces.push({number, source: piece.source, original: piece.source});
        if (piece.kind === 'text') {
          const {target, isHidden} = this.targets.current;
          shown.add(this.pieces[number]);
          if (target && !isHidden) together.push(this.pieces[number]);
        } else if (piece.kind !== 'unseen') {
          const name = quill.lowerName(piece.name);
          if (quill.breaksText(name)) endBlock();
          this.readTag(piece, name, number, shown);
        }
      }
      document.body.replaceChildren(root);
    }

    // Ids are not sent: the service gives new ones.
    readTag(tag, name, number, shown) {
      if (tag.kind === 'end') {
        this.targets.leave(number);
        return shown.leave();
      }
      const id = quill.attributesOf(tag).find((attribute) => attribute.name === 'id');
      if (id) this.pieces[number].source = tag.source.slice(0, id.begin) + tag.source.slice(id.end);
      if (tag.kind === 'start') this.targets.enter(name, id ? quill.decode(id.value) : '', number);
      shown.enter(name, tag);
    }

    // Marks every match of another text. The place stays, so that a text can be typed letter by letter.
    lookFor(text, matchesCase) {
      if (this.pattern.equals(text, matchesCase)) return;
      if (this.current) this.place = this.placeOf(this.current);
      this.setCurrent(null);
      this.pattern = new quill.TextPattern(text, matchesCase);
      this.searchAll();
    }

    searchAll() {
      this.count = 0;
      for (const block of this.blocks) {
        block.search(this.pattern);
        this.count += block.starts.length;
      }
      this.drawMarks({anew: true});
    }

    // Blocks with matches that can be seen or are at most a screen away, those first that can be seen.
    blocksNearView() {
      const found = this.blocks.filter((block) => block.starts.length > 0);
      const measured = found.map((block) => ({block, distance: block.distance}));
      const near = measured.filter(({distance}) => distance < 1);
      near.sort((a, b) => Math.sign(a.distance) - Math.sign(b.distance));
      return near.map(({block}) => block);
    }

    // Draws the marks that can be seen; those further away come when the page is scrolled there. What is stale is drawn
    // anew. To lay out five thousand marks would take a second.
    drawMarks({anew}) {
      const near = new Set(this.blocksNearView());
      if (this.current) near.add(this.current.block);
      for (const block of Array.from(this.marked.keys())) {
        if (!near.has(block)) this.draw(block, 0);
      }
      let left = MOST_MARKS;
      for (const block of near) {
        const shown = this.marked.get(block)?.length ?? 0;
        const most = block === this.current?.block ? Math.max(left, this.current.match + 1) : left;
        if (anew || shown < Math.min(most, block.starts.length)) this.draw(block, most);
        left = Math.max(0, left - block.starts.length);
      }
    }

    draw(block, most) {
      const marks = quill.drawBlock(block, this.pattern.length, most);
      if (marks.length > 0) this.marked.set(block, marks);
      else this.marked.delete(block);
      this.markCurrent('current');
    }

    marksOf({block, match}) {
      return this.marked.get(block)?.[match] ?? [];
    }

    markCurrent(className) {
      if (this.current) for (const mark of this.marksOf(this.current)) mark.className = className;
    }

    setCurrent(current) {
      this.markCurrent('');
      this.current = current;
      if (current && this.marksOf(current).length === 0) this.draw(current.block, current.match + 1);
      this.markCurrent('current');
    }

    scrollToCurrent() {
      const mark = this.current && this.marksOf(this.current)[0];
      if (!mark) return;
      const {top, bottom, left, right} = mark.getBoundingClientRect();
      const isInView = top >= 0 && left >= 0 && bottom <= innerHeight && right <= innerWidth;
      if (!isInView) mark.scrollIntoView({block: 'center', inline: 'nearest'});
    }

    placeOf({block, match}, behind = 0) {
      return {number: block.number, at: block.starts[match] + behind};
    }

    // The first match at or behind a place, or null.
    matchBehind({number, at}) {
      for (const block of this.blocks.slice(number)) {
        const match = block.starts.findIndex((start) => block.number > number || start >= at);
        if (match >= 0) return {block, match};
      }
      return null;
    }

    // The last match before a place, or null.
    matchBefore({number, at}) {
      for (const block of this.blocks.slice(0, number + 1).reverse()) {
        const before = block.starts.filter((start) => block.number < number || start < at);
        if (before.length > 0) return {block, match: before.length - 1};
      }
      return null;
    }

    textOf({block, match}) {
      const start = block.starts[match];
      const codes = block.codes.slice(start, start + this.pattern.length);
      return String.fromCodePoint(...codes);
    }

    // Goes to a match; without one the next search begins at the page's other end.
    goTo(found, otherEnd) {
      this.setCurrent(found);
      this.place = found ? this.placeOf(found, this.pattern.length) : otherEnd;
      this.scrollToCurrent();
      return found ? this.textOf(found) : '';
    }

    find(text, matchesCase, isBackwards) {
      this.lookFor(text, matchesCase);
      if (!isBackwards) return this.goTo(this.matchBehind(this.place), {number: 0, at: 0});
      const from = this.current ? this.placeOf(this.current) : this.place;
      return this.goTo(this.matchBefore(from), {number: this.blocks.length, at: 0});
    }

    // Replaces the current match and goes to the next; without one only goes there, so that nothing is replaced that
    // the user has not seen. Behind the replacement the search goes on, not in it.
    replace(text, replacement, matchesCase) {
      this.lookFor(text, matchesCase);
      if (!this.current) return this.find(text, matchesCase, false);
      const {block, match} = this.current;
      const replaced = this.textOf(this.current);
      this.setCurrent(null);
      const before = block.starts.length;
      const at = block.replace([block.starts[match]], this.pattern.length, quill.encode(replacement));
      this.noteChange(block);
      block.search(this.pattern, at);
      this.count += block.starts.length - before;
      this.draw(block, MOST_MARKS);
      this.place = {number: block.number, at};
      const next = this.matchBehind(this.place);
      if (next) this.goTo(next);
      return replaced;
    }

    // Replaces what is marked. How many that were, or "".
    replaceAll(text, replacement, matchesCase) {
      this.lookFor(text, matchesCase);
      const found = this.blocks.filter((block) => block.starts.length > 0);
      const count = this.count;
      if (count === 0) return '';
      this.setCurrent(null);
      const source = quill.encode(replacement);
      for (const block of found) {
        block.replace(block.starts, this.pattern.length, source);
        this.noteChange(block);
        block.search(this.pattern);
      }
      this.count = this.blocks.reduce((sum, block) => sum + block.starts.length, 0);
      this.place = {number: 0, at: 0};
      for (const block of found) this.draw(block, 0);
      this.drawMarks({anew: false});
      return String(count);
    }

    noteChange(block) {
      if (block.isChanged) this.changed.add(block);
      else this.changed.delete(block);
    }

    state() {
      const {block, match} = this.current ?? {block: null, match: 0};
      const before = block ? this.blocks.slice(0, block.number) : [];
      const number = block ? before.reduce((sum, each) => sum + each.starts.length, match + 1) : 0;
      return {matches: this.count, current: number, changes: this.changed.size};
    }

    changedBlocks() {
      return this.blocks.filter((block) => this.changed.has(block));
    }

    showChange(number) {
      const nodes = this.changedBlocks()[number]?.pieces.flatMap((piece) => piece.nodes) ?? [];
      nodes[0]?.parentElement.scrollIntoView({block: 'center', inline: 'nearest'});
    }

    // The smallest elements around all changes, in the page's order. What lies within another one goes with it.
    json() {
      const changes = [];
      let sentUpTo = -1;
      for (const {id, first, last, blocks} of this.targets.all) {
        if (last <= sentUpTo || !blocks.some((block) => this.changed.has(block))) continue;
        const content = this.pieces.slice(first, last + 1).map((piece) => piece.source).join('');
        changes.push({target: id, action: 'replace', content});
        sentUpTo = last;
      }
      return changes.length > 0 ? JSON.stringify(changes) : '';
    }
  }

  let editor = new Editor('', {});

  // Shows a page in place of the one before; nothing is searched for and nothing changed. `texts` has the words for a
  // picture and for another object that is not shown.
  globalThis.LoadPage = (source, texts) => {
    editor = new Editor(source, texts);
    scrollTo(0, 0);
  };

  // Marks all matches and stays where the page is.
  globalThis.MarkAll = (text, caseFlag) => editor.lookFor(text, caseFlag);

  // Draws the marks of matches that have come into view, after the page was scrolled or made larger: the program hears
  // of that, whether or not the engine calls listeners in a page without scripts of its own.
  globalThis.DrawMarks = () => editor.drawMarks({anew: false});

  // Goes to the next match, or the one before. Its text, or "" when there is none any more; after that the search
  // begins at the page's other end.
  globalThis.Find = (text, caseFlag, isBackwards = false) => editor.find(text, caseFlag, isBackwards);

  // Replaces the match that `Find` went to, and goes to the next. What was replaced, or what was found when there was
  // no such match, or "" when there is none any more.
  globalThis.Replace = (text, replacement, caseFlag) => editor.replace(text, replacement, caseFlag);

  // Replaces all matches. Their number, or "" when there is none.
  globalThis.ReplaceAll = (text, replacement, caseFlag) => editor.replaceAll(text, replacement, caseFlag);

  // Brings the current match into view. Its text, or "" when there is none.
  globalThis.GoToHighlightPosition = () => {
    editor.scrollToCurrent();
    return editor.current ? editor.textOf(editor.current) : '';
  };

  // The changes as the service takes them, or "" when nothing has changed.
  globalThis.GetJson = () => editor.json();

  // {matches, current, changes}: how many there are, and which match is the current one; 0 for none.
  globalThis.GetState = () => editor.state();

  // Each changed text, in the page's order: {kind, before, after}.
  globalThis.GetChanges = () => editor.changedBlocks().map((block) => ({kind: block.kind, ...block.change()}));

  // Brings the text of one of these into view.
  globalThis.ShowChange = (number) => editor.showChange(number);
})();
