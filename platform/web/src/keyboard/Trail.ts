import type { Point } from "./Touches.ts";

/// The way of a finger that swipes, on a canvas over the keys.
export class Trail {
    readonly element = document.createElement("canvas");

    fit(width: number, height: number): void {
        const scale = devicePixelRatio;
        this.element.width = width * scale;
        this.element.height = height * scale;
        this.element.getContext("2d")?.scale(scale, scale);
    }

    /// Nothing is left of it with no points.
    draw(points: readonly Point[]): void {
        const context = this.element.getContext("2d");
        if (!context)
            return;
        context.clearRect(0, 0, this.element.width, this.element.height);
        if (points.length < 2)
            return;
        context.strokeStyle = getComputedStyle(this.element).color;
        context.lineWidth = 6;
        context.lineCap = context.lineJoin = "round";
        context.beginPath();
        for (const { x, y } of points)
            context.lineTo(x, y);
        context.stroke();
    }
}
