import { readFileSync, readdirSync } from "node:fs";
import { Vanoka } from "../../src/core/index.ts";

const top = new URL("../../../../", import.meta.url);
const modulePath = process.env["VANOKA_MODULE"] ?? new URL("build/wasm/bin/vanoka.wasm", top);

export const read = (name: string): string => readFileSync(new URL(name, top), "utf-8");
export const namesIn = (folder: string): string[] => readdirSync(new URL(folder, top));
export const withJoiners = (text: string): string => text.replaceAll("\\u200D", "\u200D");
export const moduleBytes = readFileSync(modulePath);
export const loaded = (): Promise<Vanoka> => Vanoka.load(moduleBytes);
