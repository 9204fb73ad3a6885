// Links of the page: the program is asked to follow them, the page itself stays.
(function (quill) {
  'use strict';

  const linkAt = function (node) {
    const link = node && quill.element(node) && quill.element(node).closest('a[href]');
    return link && quill.body().contains(link) ? link.getAttribute('href') : '';
  };

  // The address of the link that the caret stands in, or of the first one that is selected; or "".
  quill.linkAtCaret = function () {
    const range = quill.selectedRange();
    if (!range) return '';
    const selected = range.cloneContents().querySelector('a[href]');
    return linkAt(range.startContainer) || (selected ? selected.getAttribute('href') : '');
  };

  quill.watchLinks = function (host) {
    let shown = '';
    const hover = function (address) {
      if (address === shown) return;
      shown = address;
      host.Hover(address);
    };
    document.addEventListener('mouseover', (event) => hover(linkAt(event.target)));
    document.documentElement.addEventListener('mouseleave', () => hover(''));
    document.addEventListener('click', (event) => {
      const address = quill.isCommand(event) ? linkAt(event.target) : '';
      if (address === '') return;
      event.preventDefault();
      host.Link(address);
    }, true);
  };
})(window.quill = window.quill || {});
