/// Symbols of the buttons above the text, where there is no room for their names: paths in a square of 24.
const paths = {
    copy: "M9 9h10v11H9zM5 15V4h10",
    share: "M12 15V4m-4 4 4-4 4 4M5 12v8h14v-8",
    save: "M12 4v11m-4-4 4 4 4-4M5 20h14",
    clear: "M5 7h14M10 7V4h4v3M7 7l1 13h8l1-13",
    keyboard: "M3 6h18v12H3zM7 10h0M11 10h0M15 10h0M18 10h0M8 14h8",
    settings: "M4 7h9M17 7h3M15 5v4M4 17h3M11 17h9M9 15v4",
    chart: "M4 4h16v16H4zM4 10h16M4 15h16M10 4v16",
    about: "M12 3a9 9 0 1 0 0 18 9 9 0 0 0 0-18M12 11v6M12 7.5h0",
};

export type Symbol = keyof typeof paths;

export function symbol(name: Symbol): SVGElement {
    const space = "http://www.w3.org/2000/svg", picture = document.createElementNS(space, "svg"), path = document.createElementNS(space, "path");
    picture.setAttribute("viewBox", "0 0 24 24");
    picture.setAttribute("aria-hidden", "true");
    path.setAttribute("d", paths[name]);
    picture.append(path);
    return picture;
}
