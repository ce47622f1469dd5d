/// What a person has chosen.
export interface Preferences {
    suggestions: boolean;
    privateMode: boolean;
    strokes: boolean;
    sound: boolean;
    vibration: boolean;
    keyboard: "automatic" | "shown" | "hidden";
    longPress: number; ///< milliseconds
    language: string; ///< empty: the browser's
    hintSeen: boolean;
}

export const longPressRange = { least: 100, usual: 300, most: 1000 } as const;
/// Where they and the keys are stored.
export const preferencesName = "vanoka.preferences.v1", keysName = "vanoka.customization.v1";
const usual: Preferences = {
    suggestions: true, privateMode: false, strokes: true, sound: false, vibration: false, keyboard: "automatic",
    longPress: longPressRange.usual, language: "", hintSeen: false,
};

/// Whatever is stored: what is missing, of another type or out of range is as usual.
export function preferencesOf(stored: string | null): Preferences {
    const result: Record<string, unknown> = { ...usual };
    try {
        const read: unknown = JSON.parse(stored ?? "{}");
        for (const [key, value] of Object.entries(read as object))
            if (key in usual && typeof value === typeof result[key])
                result[key] = value;
    } catch {
        return { ...usual };
    }
    const preferences = result as unknown as Preferences;
    preferences.longPress = Math.min(Math.max(Math.round(preferences.longPress) || longPressRange.usual, longPressRange.least), longPressRange.most);
    return preferences;
}
