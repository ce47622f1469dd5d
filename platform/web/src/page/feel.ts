import { preferences } from "./preferences.ts";

let audio: AudioContext | undefined;

/// What a key feels like: nothing, unless it was switched on.
export function feel(): void {
    if (preferences.vibration)
        navigator.vibrate?.(10);
    if (preferences.sound)
        click();
}

function click(): void {
    audio ??= new AudioContext();
    const tone = audio.createOscillator(), volume = audio.createGain(), now = audio.currentTime;
    tone.frequency.value = 1200;
    volume.gain.setValueAtTime(0.05, now);
    volume.gain.exponentialRampToValueAtTime(0.001, now + 0.03);
    tone.connect(volume).connect(audio.destination);
    tone.start(now);
    tone.stop(now + 0.03);
}
