const hostOf = (url: string): string => {
    try {
        return new URL(url).host;
    } catch {
        return "";
    }
};

/// The host of the tab's page, of which this frame may be a part. Where browsers do not tell who the ancestors are,
/// the frame's referrer has to do.
export function site(): string {
    if (window === window.top)
        return location.host || location.protocol;
    const { ancestorOrigins } = location;
    const top = ancestorOrigins?.length ? ancestorOrigins[ancestorOrigins.length - 1]! : document.referrer;
    return hostOf(top) || location.host;
}
