// Drives MathJax 3, in the page's own world, before MathJax is loaded.
(function () {
  'use strict';
  window.MathJax = {
    startup: {
      ready() {
        const {startup} = window.MathJax;
        startup.defaultReady();
        startup.promise = startup.promise.then(() => window.quill.finish(0));
      },
    },
  };

  // An unknown command is set as red text, glyph by glyph: "\" is code 5C.
  function undefinedCommand(node) {
    const codes = [...node.querySelectorAll('[data-c]')].map((glyph) => parseInt(glyph.dataset.c, 16));
    return codes[0] === 0x5C ? String.fromCodePoint(...codes) : '';
  }

  function lookForProblems(quill, span, text) {
    for (const node of span.querySelectorAll('[data-mml-node="mtext"][fill="red"]')) {
      const command = undefinedCommand(node);
      if (command) quill.problem('Undefined control sequence ' + command);
    }
    // Open braces hide the closing delimiter, so that the text stands there as it is. The words come from the
    // reader of formulas itself then.
    const isText = text && !span.querySelector('mjx-container');
    const seen = isText ? window.MathJax.tex2svg(text.slice(2, -2)) : span;
    const broken = seen.querySelector('[data-mjx-error]');
    if (broken) quill.problem(broken.getAttribute('data-mjx-error'));
    return isText || Boolean(broken);
  }

  // As if the page were new: no numbers, no labels, and names inside the picture counted from one.
  function forget() {
    const {startup, typesetClear, texReset} = window.MathJax;
    typesetClear();
    texReset();
    startup.output.clearFontCache();
    startup.output.fontCache.nextID = 0;
  }

  window.quill.typeset = function (job, text) {
    const {startup, typesetPromise} = window.MathJax;
    startup.promise = startup.promise
        .then(() => {
          this.begin();
          forget();
          const span = this.stage('equation', text);
          return typesetPromise([span]).then(() => {
            this.show('equation', span);
            this.finish(job, lookForProblems(this, span, text));
          });
        })
        .catch((error) => {
          this.problem(error.message || String(error));
          this.finish(job, true);
        });
  };

  window.quill.text = () => document.getElementById('equation').innerText;
})();
