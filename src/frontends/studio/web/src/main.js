console.log("studio");
