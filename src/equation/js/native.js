// Drives MathJax 2, in the page's own world, before MathJax is loaded.
(function () {
  'use strict';
  let failed = false;

  // MathJax writes the names of characters and of classes as they stand in the formula, and then reads the whole
  // as the page's markup: an element in them would be one of the page.
  function writeMarkupAsText() {
    const {entity, mbase} = window.MathJax.ElementJax.mml;
    const {toMathML} = entity.prototype;
    const {toMathMLclass} = mbase.prototype;
    entity.Augment({
      toMathML(space) {
        if (/^[A-Za-z0-9#]+$/.test(this.data[0])) return toMathML.call(this, space);
        return (space || '') + mbase.prototype.toMathMLquote(this.toString());
      },
    });
    mbase.Augment({
      toMathMLclass(attributes) {
        const own = [];
        toMathMLclass.call(this, own);
        for (const attribute of own) {
          const value = attribute.slice('class="'.length, -1);
          attributes.unshift('class="' + this.toMathMLquote(value) + '"');
        }
      },
    });
  }

  window.MathJax = {
    AuthorInit() {
      const hub = window.MathJax.Hub;
      hub.Register.MessageHook('TeX Jax - parse error', (message) => {
        failed = true;
        window.quill.problem(message[1]);
      });
      hub.Register.MessageHook('TeX Jax - undefined control sequence', (message) => {
        window.quill.problem('Undefined control sequence ' + message[1]);
      });
      hub.Register.MessageHook('Math Processing Error', (message) => {
        failed = true;
        window.quill.problem(String(message[2].message || message[2]));
      });
      hub.Register.StartupHook('toMathML Ready', writeMarkupAsText);
      hub.Register.StartupHook('End', () => {
        hub.processSectionDelay = 0;  // pauses for long pages: they made two thirds of the time of one formula
        window.MathJax.Extension['fast-preview'].Disable();
        window.quill.finish(0);
      });
    },
  };

  // Open braces hide the closing delimiter, so that the text stands there as it is. The words come from the reader
  // of formulas itself then.
  function explain(text) {
    failed = true;
    try {
      window.MathJax.InputJax.TeX.Parse(text.slice(2, -2), {}).mml();
    } catch (error) {
      if (error.texError) window.quill.problem(error.message);
    }
  }

  window.quill.typeset = function (job, text) {
    const {Hub, InputJax} = window.MathJax;
    this.begin();
    failed = false;
    const span = this.stage('equationspan', text);
    Hub.Queue(
        ['resetEquationNumbers', InputJax.TeX],
        ['Typeset', Hub, span],
        () => {
          if (text && !Hub.getAllJax(span).length) explain(text);
          span.getBoundingClientRect();  // the layout asks for the fonts that are not there yet
          document.fonts.ready.then(() => {
            this.show('equationspan', span);
            this.finish(job, failed);
          });
        });
  };
})();
