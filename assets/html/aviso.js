// Notices: a band at the top or the bottom of the page with a text that crawls across it. Every page of the projection
// has them, and so has the page above the layers, which has nothing else.
(function () {
  'use strict';

  const FADE_MS = 350;
  const JUST_SHOWN_MS = 500;
  const running = new Set(); // { fields, band, line, animation, fit }, also those on their way out
  let current = null; // the one that was sent last

  function number(value, fallback) {
    const n = parseFloat(value);
    return Number.isFinite(n) ? n : fallback;
  }

  const between = (low, n, high) => Math.min(high, Math.max(low, n));

  // A page that has nothing but notices hears of the first frame of one and of the end of the last.
  const tell = (what) => document.dispatchEvent(new Event(what));
  const tellOfFrame = () => requestAnimationFrame(() => requestAnimationFrame(() => current && tell('temaviso')));

  // One whose time went by while the projection was off is not to be seen again, not even leaving.
  let shownAt = -Infinity;
  document.addEventListener('visibilitychange', () => {
    if (document.hidden)
      return;
    shownAt = performance.now();
    tellOfFrame();
  });

  function removeNotice(notice) {
    if (current === notice)
      current = null;
    const { band } = notice;
    if (band.classList.contains('avisoSai'))
      return;
    band.classList.add('avisoSai');
    const duration = performance.now() - shownAt < JUST_SHOWN_MS ? 0 : FADE_MS;
    band.animate([{ opacity: 1 }, { opacity: 0 }], { duration, fill: 'forwards' }).onfinish = () => {
      notice.animation.cancel();
      window.removeEventListener('resize', notice.fit);
      band.remove();
      running.delete(notice);
      if (!running.size)
        tell('semaviso');
    };
  }

  // One that runs already stays beneath the new one until that covers it, and goes then.
  function replaceNotice(old, { band }) {
    if (!old)
      return;
    if (old.band.classList.contains('avisoTopo') !== band.classList.contains('avisoTopo')) {
      removeNotice(old);
      return;
    }
    band.classList.add('avisoTroca');
    band.animate([{ opacity: 0 }, { opacity: 1 }], { duration: FADE_MS }).onfinish = () => removeNotice(old);
  }

  // One unit of speed is one per cent of the screen's width in a second, so that a projection and its small preview
  // keep step. A text that is read from right to left comes in from the left. On a screen of another size the way is
  // another, and the text is as far on it as before.
  function crawl(notice, speed, passes, gone) {
    const { band, line } = notice;
    const toRight = getComputedStyle(line).direction === 'rtl';
    line.classList.toggle('avisoDireita', toRight);
    const perSecond = 0.01 * between(1, number(speed, 11), 100);
    const way = () => {
      const width = band.clientWidth || 1280;
      const far = width + line.offsetWidth;
      return {
        steps: [{ transform: 'none' }, { transform: 'translateX(' + (toRight ? far : -far) + 'px)' }],
        duration: (far / (width * perSecond)) * 1000,
      };
    };
    const { steps, duration } = way();
    const animation = line.animate(steps, { duration, iterations: passes });
    animation.currentTime = gone * duration;
    notice.animation = animation;
    notice.fit = () => {
      const done = passesDone(notice);
      const now = way();
      animation.effect.setKeyframes(now.steps);
      animation.effect.updateTiming({ duration: now.duration });
      animation.currentTime = done * now.duration;
    };
    window.addEventListener('resize', notice.fit);
  }

  const passesDone = ({ animation }) => (animation.currentTime || 0) / animation.effect.getTiming().duration;

  function begin(fields, gone) {
    const [text, position, passes, percent, speed, bandColour, textColour] = fields;
    const height = between(2, number(percent, 8), 50);
    const band = document.createElement('div');
    band.className = 'aviso ' + (position === 'top' ? 'avisoTopo' : 'avisoBase');
    band.classList.toggle('avisoTroca', gone > 0);
    band.style.cssText = 'height:' + height + 'vh;font-size:' + height * 0.6 + 'vh;line-height:' + height + 'vh';
    band.style.backgroundColor = bandColour || '#c00000';
    band.style.color = textColour || '#ffffff';
    const line = document.createElement('span');
    line.className = 'avisoTexto';
    line.dir = 'auto';
    line.textContent = text.replace(/[\r\n\u2028\u2029]+/g, ' ');
    band.appendChild(line);
    (document.body || document.documentElement).appendChild(band);
    const notice = { fields, band, line };
    running.add(notice);
    replaceNotice(current, notice);
    current = notice;
    crawl(notice, speed, between(1, Math.trunc(number(passes, 1)), 20), gone);
    notice.animation.onfinish = () => {
      line.remove();
      removeNotice(notice);
    };
    tellOfFrame();
  }

  function ExibeAviso(...fields) {
    const words = fields.map((field) => (field === undefined || field === null ? '' : String(field)));
    if (words[0].trim() !== '')
      begin(words, 0);
    else
      running.forEach(removeNotice);
  }

  // What another page needs to go on with the notice when this one is left: its fields and how many passes are gone.
  const AvisoEmCurso = () => current && { campos: current.fields, feito: passesDone(current) };

  const ContinuaAviso = ({ campos, feito }) => begin(campos, feito);

  Object.assign(window, { ExibeAviso, AvisoEmCurso, ContinuaAviso });
})();
