// Cameras behind the text, in the place of the theme's picture. The program asks for their names with getCameras() and
// reads the answer off the address that the page then wants to go to; one camera is on show at a time.
(function () {
  'use strict';

  const FADE_MS = 300;
  const devices = navigator.mediaDevices; // absent where no camera is allowed at all

  let wanted = null; // the camera on show, or the one that was unplugged while it was: { index, id }
  let layer = null; // its picture
  let turn = 0; // counts starts and stops; what an older one still brings comes too late

  // The program cancels these navigations and reads them with one byte a character. Two at once would be one.
  const waiting = [];
  function tell(place, text) {
    const code = escape(text).replace(/%u(....)/g, (all, hex) => '%26%23' + parseInt(hex, 16) + '%3B');
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

  const report = (index, word) => tell('webcam', index + '|' + word);

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
    const name = (camera, i) => (camera.label || 'Camera ' + (i + 1)).replace(/\|/g, '/');
    tell('indexcam', found.map((camera, i) => name(camera, i) + '|').join(''));
  }

  const pictures = () => Array.from(document.querySelectorAll('.camera'));

  function remove(picture) {
    end(picture.srcObject);
    picture.remove();
  }

  function removeLayer() {
    layer = null;
    pictures().forEach((picture) => {
      picture.classList.remove('pronta');
      setTimeout(remove, FADE_MS, picture);
    });
  }

  // Those that are on show already stay beneath the new one until it covers them.
  function showLayer(stream, index) {
    const picture = document.createElement('video');
    const older = pictures();
    picture.className = 'camera';
    picture.autoplay = picture.muted = picture.playsInline = true;
    picture.srcObject = stream;
    layer = picture;
    picture.onloadeddata = () => {
      picture.classList.add('pronta');
      setTimeout(() => older.forEach(remove), FADE_MS);
      if (layer === picture)
        report(index, 'aberta');
    };
    stream.getVideoTracks()[0].onended = () => {
      if (layer === picture) {
        removeLayer();
        report(index, 'saiu');
      }
    };
    document.body.insertBefore(picture, document.querySelector('.textoContainer'));
  }

  async function startWebcam(number) {
    const index = Math.trunc(Number(number));
    await start({ index, id: null });
  }

  async function start(choice) {
    const mine = ++turn;
    wanted = choice;
    let stream = null;
    try {
      const found = await cameras();
      const camera = choice.id ? found.find((one) => one.deviceId === choice.id) : found[choice.index];
      stream = await devices.getUserMedia({
        audio: false,
        video: {
          deviceId: { exact: camera.deviceId },
          width: { ideal: 1920 },
          height: { ideal: 1080 },
          frameRate: { ideal: 30 },
        },
      });
      choice.id = camera.deviceId;
    } catch (e) {
      if (mine === turn) {
        removeLayer();
        report(choice.index, 'falhou');
      }
      return;
    }
    if (mine === turn)
      showLayer(stream, choice.index);
    else
      end(stream);
  }

  function stopWebcam() {
    ++turn;
    wanted = null;
    removeLayer();
  }

  // One that was pulled out comes back by itself.
  if (devices)
    devices.addEventListener('devicechange', async () => {
      const choice = wanted;
      if (!choice || !choice.id || layer)
        return;
      const found = await cameras();
      if (wanted === choice && !layer && found.some((camera) => camera.deviceId === choice.id))
        start(choice);
    });

  Object.assign(window, { getCameras, startWebcam, stopWebcam });
})();
