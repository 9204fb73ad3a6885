// In a world of our own: carries the page's calls to the program, and keeps the preview from being anything but a
// picture to look at (links, MathJax's menu).
(function () {
  'use strict';
  const waiting = [];
  let bridge = null;

  document.addEventListener('quill-call', (event) => {
    if (bridge) {
      bridge.JsCall(event.detail);
    } else {
      waiting.push(event.detail);
    }
  });
  new QWebChannel(qt.webChannelTransport, (channel) => {
    bridge = channel.objects.bridge;
    waiting.splice(0).forEach((message) => bridge.JsCall(message));
  });

  const kept = ['mousedown', 'mouseup', 'click', 'dblclick', 'auxclick', 'contextmenu', 'keydown', 'keyup',
    'touchstart', 'touchend', 'dragstart'];
  for (const name of kept) {
    window.addEventListener(name, (event) => {
      event.stopImmediatePropagation();
      if (/click|menu|drag/.test(name) || event.key === 'Enter') event.preventDefault();
    }, {capture: true, passive: false});
  }
})();
