declare module "#module?url" {
    const url: string;
    export default url;
}
declare module "#data/*?url" {
    const url: string;
    export default url;
}
declare module "#*?raw" {
    const text: string;
    export default text;
}
