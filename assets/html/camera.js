// Cameras behind the text, in the place of the theme's picture. The program asks for their names with getCameras() and
// reads the answer off the address that the page then wants to go to; one camera is on show at a time.
(function () {
  'use strict';

  const FADE_MS = 300;
  const FIRST_PICTURE_MS = 8000; // a device that gives none by then counts as one that cannot be opened
  const PLUGGED_IN_MS = 1000; // until one that was plugged in can be opened
  const NEW_PAGE_MS = 5000; // on a page younger than that a camera comes without a fade
  const LIST = 'tolmiraCameras'; // the names of the list that was told, for all pages of the program
  const WAITS = 'data-espera'; // the picture of the page before stays while the root has it
  const root = document.documentElement;
  const devices = navigator.mediaDevices; // absent where no camera is allowed at all

  let wanted = null; // { name, which, index }: the camera on show, also while it is unplugged
  let shown = null; // { choice, picture }: what is seen
  let turn = 0; // counts starts and stops; what an older one still brings comes too late

  // The program cancels these navigations and reads them with one byte a character. Two at once would be one.
  const waiting = [];
  function tell(place, text) {
    const code = escape(text)
      .replace(/\+/g, '%2B')
      .replace(/%u(....)/g, (all, hex) => '%26%23' + parseInt(hex, 16) + '%3B');
    waiting.push('http://' + place + '//?' + code);
    if (waiting.length === 1)
      leave();
  }

  function leave() {
    location.href = waiting[0];
    setTimeout(() => {
      waiting.shift();
      if (waiting.length)
        leave();
    }, 50);
  }

  function told() {
    try {
      return JSON.parse(localStorage.getItem(LIST)) || [];
    } catch (e) {
      return [];
    }
  }

  // The engine gives a camera another identity on each page, so it is known by its name, and among several of one name by
  // which of them it is. Its place alone would be another camera's as soon as one is plugged in or out.
  function chosen(index) {
    const names = told();
    const name = names[index];
    return { index, name, which: names.slice(0, index).filter((one) => one === name).length };
  }

  function find(found, choice) {
    return choice.name ? found.filter((camera) => camera.label === choice.name)[choice.which] : found[choice.index];
  }

  // By its place in the list as it stands now, since the program may have asked for a new one meanwhile.
  function report(choice, word) {
    const places = told().flatMap((name, place) => (choice.name && name === choice.name ? [place] : []));
    const place = choice.which in places ? places[choice.which] : choice.index;
    tell('webcam', place + '|' + word);
  }

  const end = (stream) => stream && stream.getTracks().forEach((track) => track.stop());

  async function cameras() {
    if (!devices)
      return [];
    const list = async () => (await devices.enumerateDevices()).filter((device) => device.kind === 'videoinput');
    const found = await list();
    if (found.every((camera) => camera.label))
      return found;
    // They have no names, and no identity, before one of them was opened.
    try {
      end(await devices.getUserMedia({ video: true }));
    } catch (e) {
      // another program has it; the others may be free
    }
    return list();
  }

  async function getCameras() {
    let found = [];
    try {
      found = await cameras();
    } catch (e) {
      // the answer is that there is none
    }
    localStorage.setItem(LIST, JSON.stringify(found.map((camera) => camera.label)));
    const name = (camera, i) => (camera.label || 'Camera ' + (i + 1)).replace(/\|/g, '/');
    tell('indexcam', found.map((camera, i) => name(camera, i) + '|').join(''));
  }

  const pictures = () => Array.from(document.querySelectorAll('.camera'));

  function remove(picture) {
    end(picture.srcObject);
    picture.remove();
  }

  function removeAll() {
    shown = null;
    pictures().forEach((picture) => {
      picture.classList.remove('pronta');
      setTimeout(remove, FADE_MS, picture);
    });
  }

  // Its first picture. The element stands in the document meanwhile, over those that are on show already.
  function opened(stream) {
    const picture = document.createElement('video');
    picture.className = 'camera';
    picture.autoplay = picture.muted = picture.playsInline = true;
    picture.srcObject = stream;
    const text = document.querySelector('.textoContainer');
    if (text)
      text.before(picture);
    else
      document.body.prepend(picture);
    return new Promise((resolve, reject) => {
      const gaveUp = () => {
        remove(picture);
        reject(new Error('no picture'));
      };
      const limit = setTimeout(gaveUp, FIRST_PICTURE_MS);
      picture.onloadeddata = () => {
        clearTimeout(limit);
        resolve(picture);
      };
    });
  }

  async function open(choice, mine) {
    const found = await cameras();
    if (mine !== turn)
      return null;
    const camera = find(found, choice);
    if (!camera || !camera.deviceId)
      throw new Error('no such camera');
    const stream = await devices.getUserMedia({
      audio: false,
      video: {
        deviceId: { exact: camera.deviceId },
        width: { ideal: 1920 },
        height: { ideal: 1080 },
        frameRate: { ideal: 30 },
      },
    });
    if (mine === turn)
      return opened(stream);
    end(stream);
    return null;
  }

  // Those that are on show already stay beneath the new one until it covers them.
  function show(choice, picture) {
    const older = pictures().filter((one) => one !== picture);
    if (!older.length && performance.now() < NEW_PAGE_MS)
      picture.style.transition = 'none';
    picture.classList.add('pronta');
    setTimeout(() => older.forEach(remove), FADE_MS);
    shown = { choice, picture };
    picture.srcObject.getVideoTracks()[0].onended = () => {
      if (!shown || shown.picture !== picture)
        return;
      removeAll();
      report(choice, 'saiu');
    };
    report(choice, 'aberta');
  }

  async function start(choice) {
    const mine = ++turn;
    wanted = choice;
    root.setAttribute(WAITS, 'camera');
    try {
      const picture = await open(choice, mine);
      if (mine === turn)
        show(choice, picture);
      else if (picture)
        remove(picture);
    } catch (e) {
      if (mine === turn) {
        // What is on show stays there.
        if (shown)
          wanted = shown.choice;
        report(choice, 'falhou');
      }
    }
    if (mine === turn)
      root.removeAttribute(WAITS);
  }

  const startWebcam = (number) => void start(chosen(Math.trunc(Number(number))));

  function stopWebcam() {
    ++turn;
    wanted = null;
    root.removeAttribute(WAITS);
    removeAll();
  }

  // One that was pulled out comes back by itself.
  if (devices)
    devices.addEventListener('devicechange', () => {
      const choice = wanted;
      if (!choice || shown)
        return;
      setTimeout(async () => {
        const found = await cameras();
        if (wanted === choice && !shown && find(found, choice))
          start(choice);
      }, PLUGGED_IN_MS);
    });

  Object.assign(window, { getCameras, startWebcam, stopWebcam });
})();
