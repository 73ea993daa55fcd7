// The functions that the program calls on a projection page, and what keeps the pictures of a theme in order. Loaded
// in the head, before the first element, so that every function exists as soon as the page takes scripts. The text
// functions need no library; without jQuery only the picture changes are missing.
(function () {
  'use strict';

  const SEM_TEXTO = 'nada'; // the marker word: no text is on show
  const root = document.documentElement;

  const byId = (id) => document.getElementById(id);

  // The console names elements by id and, for the bands and the pictures, by class.
  function targets(name) {
    const one = byId(name);
    return one ? [one] : Array.from(document.getElementsByClassName(name));
  }

  function number(value, fallback) {
    const n = parseFloat(value);
    return Number.isFinite(n) ? n : fallback;
  }

  const between = (low, n, high) => Math.min(high, Math.max(low, n));

  function UpdateTextHtml(html) {
    const text = byId('texto');
    if (!text)
      return;
    text.innerHTML = String(html).trim() === SEM_TEXTO ? '' : html;
    text.querySelectorAll('.comFade, .comZoom').forEach((element) => {
      const own = getComputedStyle(element);
      addToChange(element, element.classList.contains('comFade'), element.classList.contains('comZoom') && 0.7, {
        duration: 500,
        delay: number(own.animationDelay, 0) * 1000,
      });
    });
  }

  // A fade and a zoom (from that scale) on top of whatever else moves the element.
  function addToChange(element, fade, zoom, timing) {
    const all = Object.assign({ easing: 'ease-out', fill: 'backwards' }, timing);
    if (fade)
      element.animate({ opacity: [0, 1] }, all);
    if (zoom)
      element.animate({ transform: ['scale(' + zoom + ')', 'scale(1)'] }, Object.assign({ composite: 'add' }, all));
  }

  function setProperty(element, property, value) {
    if (property in element.style)
      element.style[property] = value;
    else
      element.style.setProperty(property, value);
  }

  function ChangeCSS(id, property, value) {
    // Pictures that come later, and pictures whose inline style is replaced, must keep the state of the movement.
    if (property === 'animation-play-state' && !byId(id) && id === 'img') {
      root.style.setProperty('--movimento', value);
      watchMovement();
    }
    targets(id).forEach((element) => setProperty(element, property, value));
  }

  function SetAttribute(id, attribute, value) {
    const element = byId(id);
    if (element)
      element.setAttribute(attribute, value);
  }

  function SetAttributeByClass(className, attribute, value) {
    if (className === 'efeitos' && attribute === 'style')
      watchFilter(value);
    Array.from(document.getElementsByClassName(className)).forEach((e) => e.setAttribute(attribute, value));
  }

  // The bands take the alpha from a variable. It is set on the bands as well as on the root, since a verse may have
  // come with an alpha of its own.
  function ApplyTransparency(alpha) {
    const value = String(between(0, number(alpha, 0), 1));
    root.style.setProperty('--faixa', value);
    document.querySelectorAll('.faixaAnimada, [style*="--faixa"]').forEach((e) => {
      if (e !== root)
        e.style.setProperty('--faixa', value);
    });
  }

  const NEUTRAL = { blur: 0, brightness: 100, contrast: 100, saturate: 100 };

  // A filter that changes nothing still costs a pass over the whole picture in every frame, so it is switched off. A
  // blurred picture is drawn larger than the screen, so that its soft edge stays outside.
  function watchFilter(style) {
    let neutral = true;
    let blur = 0;
    for (const [, name, value] of String(style).matchAll(/(blur|brightness|contrast|saturate)\(\s*([\d.]+)/g)) {
      neutral = neutral && parseFloat(value) === NEUTRAL[name];
      if (name === 'blur')
        blur = parseFloat(value);
    }
    root.classList.toggle('semFiltro', neutral);
    root.style.setProperty('--margem', 2 * blur + 'px');
  }

  function watchMovement() {
    if (getComputedStyle(root).getPropertyValue('--movimento').trim() === 'running')
      root.classList.add('comMovimento');
  }

  const INTERVALS = { 1: 10000, 2: 15000, 3: 20000, 4: 30000, 5: 60000 };

  const $ = () => window.jQuery;
  const cycleOptions = () => $() && $()(byId('slideshow')).data('cycle.opts');
  let kept = null; // the options of the theme, with what ChangeOptions made of them

  // Effect names that the cycle knows, as it wants them; "none" when there are none, which changes at once.
  function effects(value) {
    const known = $().fn.cycle.transitions;
    const names = String(value || '').split(',').map((s) => s.trim());
    return names.filter((n) => Object.prototype.hasOwnProperty.call(known, n)).join(',') || 'none';
  }

  function easing(value) {
    return value && typeof $().easing[value] === 'function' ? value : null;
  }

  // An interval is given in milliseconds or as its position in the list of intervals; nothing means no rotation.
  function interval(value) {
    return INTERVALS[value] || (number(value, 0) >= 250 ? number(value, 0) : 0);
  }

  // Sizes and places are given to the page only while a picture changes. At rest every picture fills its host, whatever
  // effect came before and however the window was resized since.
  function rest(slide) {
    ['width', 'height', 'top', 'left', 'opacity'].forEach((p) => (slide.style[p] = ''));
    slide.classList.remove('troca', 'escala');
  }

  // Effects that change the size of a picture, which the engine then has to scale in every frame.
  const SCALING = /^(curtain|turn|slide|zoom|fadeZoom|grow)/;

  function beforeChange(current, next, options) {
    const host = options.$cont[0];
    [current, next].forEach((slide) => {
      slide.cycleW = host.clientWidth;
      slide.cycleH = host.clientHeight;
    });
    if (current === next)
      return;
    rest(next);
    const fx = options.multiFx ? options.fxs[options.lastFx] : options.fx;
    [current, next].forEach((slide) => {
      slide.classList.add('troca');
      slide.classList.toggle('escala', SCALING.test(fx));
    });
    // Without an effect the old picture goes at once, and a fade would begin at black.
    if (fx !== 'none')
      addToChange(next, options.comFade, options.comZoom && 1.2, { duration: options.speedIn || 1000 });
  }

  function afterChange(current, next, options) {
    options.shuffle = null; // the way that "shuffle" takes depends on the width at the time
    options.elements.forEach((slide) => {
      rest(slide);
      slide.style.display = slide === next ? 'block' : 'none';
    });
    keepNearPictures(options, Array.from(options.elements).indexOf(next));
  }

  // A list may name hundreds of pictures, and the engine reads, and keeps, each one that has its address. So the list
  // lies in a template, whose pictures are none yet, and only those near the one on show have theirs.
  const NEAR = 1;
  const FAR = 3; // one that was near is kept up to here, so that going back and forth reads nothing

  function fillFromTemplate(host) {
    const template = host.querySelector('template');
    if (!template)
      return false;
    template.content.querySelectorAll('img').forEach((image) => {
      image.dataset.src = image.getAttribute('src') || '';
      image.removeAttribute('src');
    });
    host.replaceChildren(template.content);
    return true;
  }

  const picture = (slide) => slide && slide.querySelector('img[data-src]');

  const decoded = new WeakMap(); // a promise for each picture that was taken; true when it has come to an end

  function takePicture(image) {
    if (!image || decoded.has(image))
      return;
    image.src = image.dataset.src;
    const ready = () => image.hasAttribute('src') && decoded.set(image, true);
    decoded.set(image, image.decode().then(ready, ready));
  }

  function dropPicture(image) {
    if (!decoded.delete(image))
      return;
    image.removeAttribute('src');
    image.classList.remove('pronta');
  }

  // Until the page has loaded the others wait: the text waits for the page, and the page for the pictures it has begun.
  function keepNearPictures(options, shown) {
    const slides = options.elements;
    const lead = emptyLead(slides);
    const count = slides.length - lead;
    const away = (i, from) => Math.min(Math.abs(i - from), count - Math.abs(i - from));
    const coming = [shown, options.nextSlide, wanted === null ? shown : wanted];
    slides.forEach((slide, i) => {
      if (i === shown || (loaded && away(i, shown) <= NEAR))
        takePicture(picture(slide));
      else if (coming.every((from) => away(i, from) > FAR))
        dropPicture(picture(slide));
    });
  }

  let loaded = false;
  let wanted = null; // the slide that is to come as soon as its picture is ready
  const WAIT_MS = 1000; // after which it comes as it is

  // A picture that is not decoded when its slide comes would leave it black for some frames.
  function changeTo(options, index) {
    const image = picture(options.elements[index]);
    wanted = index;
    const change = () => {
      if (wanted !== index || cycleOptions() !== options)
        return;
      wanted = null;
      if (image && image.naturalWidth)
        image.classList.add('pronta');
      if (index === (options.currSlide + 1) % options.elements.length)
        options.$cont.cycle('next');
      else if (index !== options.currSlide)
        options.$cont.cycle(index);
    };
    takePicture(image);
    if (!image || decoded.get(image) === true) {
      change();
      return;
    }
    decoded.get(image).then(change);
    setTimeout(change, WAIT_MS);
  }

  function themeOptions() {
    const theme = window.opcoesImagem || {};
    return {
      fx: effects(theme.fx),
      sync: number(theme.sync, 1),
      speed: between(1, number(theme.speed, 1000), 60000),
      delay: number(theme.delay, 0),
      easing: easing((window.opcaoEasing || {}).easing),
      comFade: number(theme.comFade, 0),
      comZoom: number(theme.comZoom, 0),
      timeout: 0,
      containerResize: 0,
      before: beforeChange,
      after: afterChange,
    };
  }

  // A lone picture stands behind an empty element, since the cycle wants two; that one is never shown.
  function emptyLead(slides) {
    return slides.length > 1 && !slides[0].querySelector('img') ? 1 : 0;
  }

  // The next picture comes in over the one on show, which stays as it is: a change between two bright pictures has no
  // dark middle, and only one of them has to be blended.
  function fade($host, $slides, options) {
    options.before.push((current, next) => {
      $().fn.cycle.commonReset(current, next, options);
      options.cssBefore.opacity = 0;
    });
    options.cssBefore = { top: 0, left: 0 };
    options.animIn = { opacity: 1 };
    options.animOut = { opacity: 1 };
  }

  if ($() && $().fn.cycle)
    $().fn.cycle.transitions.fade = fade;

  function StartCycle() {
    const host = byId('slideshow');
    if (!host)
      return;
    const first = fillFromTemplate(host) ? Math.max(0, number((window.opcoesImagem || {}).primeira, 0)) : 0;
    if (!$() || !$().fn.cycle) {
      takePicture(host.querySelector('img[data-src]'));
      return;
    }
    kept = kept || themeOptions();
    $()(host).cycle('stop');
    wanted = null;
    const slides = Array.from(host.children);
    if (slides.length < 2)
      return;
    const lead = emptyLead(slides);
    const start = lead + Math.trunc(first);
    // The cycle measures each slide, which costs a layout apiece where they can be seen; beforeChange measures what is
    // really needed.
    host.style.display = 'none';
    $()(host).cycle(Object.assign({}, kept, { startingSlide: start < slides.length ? start : lead }));
    host.style.display = '';
  }

  function GotoSlideImage(n) {
    const options = cycleOptions();
    if (!options)
      return;
    const lead = emptyLead(options.elements);
    const index = Math.trunc(number(n, -1)) + lead;
    if (index >= lead && index < options.elements.length && index !== (wanted === null ? options.currSlide : wanted))
      changeTo(options, index);
  }

  function GotoNextImage() {
    const options = cycleOptions();
    if (options && options.elements.length - emptyLead(options.elements) > 1)
      changeTo(options, ((wanted === null ? options.currSlide : wanted) + 1) % options.elements.length);
  }

  function restartTimer(options) {
    const host = options.$cont[0];
    clearTimeout(host.cycleTimeout);
    host.cycleTimeout = 0;
    if (options.timeout)
      host.cycleTimeout = setTimeout(GotoNextImage, options.timeout);
  }

  function ChangeOptions(name, value) {
    if (!$() || !$().fn.cycle)
      return;
    kept = kept || themeOptions();
    const options = cycleOptions();
    const change = {};
    if (name === 'fx')
      change.fx = effects(value);
    else if (name === 'timeout')
      change.timeout = interval(value);
    else if (name === 'easing')
      change.easing = easing(value);
    else if (name === 'speed')
      change.speed = between(1, number(value, 1000), 60000);
    else
      change[name] = number(value, value);
    Object.assign(kept, change);
    if (!options)
      return;
    Object.assign(options, change);
    if (name === 'fx') {
      options.multiFx = change.fx.includes(',');
      options.fxs = change.fx.split(',');
      options.lastFx = undefined;
    } else if (name === 'timeout') {
      restartTimer(options);
    } else if (name === 'easing') {
      options.easeIn = options.easeOut = change.easing;
    } else if (name === 'speed') {
      options.speedIn = options.speedOut = change.speed;
    }
  }

  // Pictures and the video appear when they are whole, and what cannot be read leaves black.
  document.addEventListener('load', (e) => e.target.tagName === 'IMG' && e.target.classList.add('pronta'), true);
  document.addEventListener('error', (e) => e.target.tagName === 'IMG' && e.target.classList.remove('pronta'), true);
  document.addEventListener('loadeddata', (e) => e.target.classList.add('pronta'), true);
  window.addEventListener('load', () => {
    root.getBoundingClientRect(); // what has come by now stands; only what comes later fades in
    root.classList.add('carregada');
    loaded = true;
    const options = cycleOptions();
    if (options)
      keepNearPictures(options, options.currSlide);
  });

  watchFilter(getComputedStyle(root).getPropertyValue('--filtro'));
  watchMovement();

  // What the page does when its elements stand: the initial text may be the marker word, and the pictures begin.
  function IniciaPagina() {
    const text = byId('texto');
    if (text && text.textContent.trim() === SEM_TEXTO)
      text.innerHTML = '';
    StartCycle();
  }

  Object.assign(window, {
    UpdateTextHtml,
    ChangeCSS,
    SetAttribute,
    SetAttributeByClass,
    ApplyTransparency,
    StartCycle,
    GotoSlideImage,
    GotoNextImage,
    ChangeOptions,
    IniciaPagina,
  });
})();
