// In the page's own world, before anything else: what both pages have in common. `answer` tells how the last job
// went; 0 is the start of MathJax. The program reads it when it hears "Save".
(function () {
  'use strict';
  Object.defineProperty(window, 'external', {
    value: {
      JsCall(message) {
        document.dispatchEvent(new CustomEvent('quill-call', {detail: String(message)}));
      },
    },
  });

  const problems = [];
  window.quill = {
    answer: null,

    begin() {
      problems.length = 0;
    },

    // What MathJax says about a formula; once is enough.
    problem(words) {
      if (!problems.includes(words)) problems.push(words);
    },

    finish(job, failed) {
      this.answer = {job, failed: Boolean(failed), problem: problems.join('\n')};
      window.external.JsCall('Save');
    },

    // A formula is set behind the scene, as wide as the page, and then takes the place of the one before: while
    // somebody types, no raw text and no empty page flashes up.
    stage(id, text) {
      const box = document.createElement('div');
      box.style.cssText = 'height: 0; overflow: hidden; visibility: hidden';
      const span = document.createElement('span');
      span.textContent = text;
      box.append(span);
      document.getElementById(id).after(box);
      return span;
    },

    show(id, span) {
      const box = span.parentNode;
      document.getElementById(id).replaceWith(span);
      span.id = id;
      box.remove();
    },

    setColors(text, background) {
      document.documentElement.style.color = text;
      document.documentElement.style.backgroundColor = background;
    },
  };

  // A script that does not come: MathJax will never start.
  window.addEventListener('error', (event) => {
    if (event.target instanceof HTMLScriptElement && !window.quill.answer) {
      window.quill.begin();
      window.quill.finish(0, true);
    }
  }, true);
})();
